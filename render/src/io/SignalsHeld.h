#ifndef LAKRESVOS_RENDER_IO_SIGNALSHELD_H
#define LAKRESVOS_RENDER_IO_SIGNALSHELD_H

#include <csignal>

namespace lakresvos::render {

/// Keeps signals from ending this thread while a temporary file has a name; they wait until the
/// object goes.
class SignalsHeld {
 public:
  SignalsHeld() {
    sigset_t held;
    sigfillset(&held);
    sigdelset(&held, SIGXFSZ);  // comes of writing only, when no file has a name
    pthread_sigmask(SIG_BLOCK, &held, &former_);
  }
  SignalsHeld(SignalsHeld const&) = delete;
  SignalsHeld& operator=(SignalsHeld const&) = delete;
  ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &former_, nullptr); }

 private:
  sigset_t former_{};
};

}  // namespace lakresvos::render

#endif
