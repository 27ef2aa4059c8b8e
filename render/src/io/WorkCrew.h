#ifndef LAKRESVOS_RENDER_IO_WORKCREW_H
#define LAKRESVOS_RENDER_IO_WORKCREW_H

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace lakresvos::render {

/// Threads that do pieces of work for the thread that owns the crew, which does its share while it
/// waits for them. Pieces are numbers from 0 on, begun in the order in which they are added.
class WorkCrew {
 public:
  /// @param helpers how many threads may be started. Each is when there is work that waits for one,
  ///        and none once the system gives no more.
  /// @param pieces  how many pieces there are at once.
  /// @param work    does a piece. Called in several threads at once, for a piece each.
  WorkCrew(std::size_t helpers, std::size_t pieces, std::function<void(std::size_t)> work)
      : work_(std::move(work)), helpers_(helpers), pieces_(pieces) {}
  WorkCrew(WorkCrew const&) = delete;
  WorkCrew& operator=(WorkCrew const&) = delete;

  /// Leaves undone what is not begun, and waits for the rest.
  ~WorkCrew();

  /// Has a piece done. Requires: it was never added, or Finish() returned it since.
  /// @throws std::bad_alloc.
  void Add(std::size_t piece);

  /// Returns when a piece is done. Requires: it was added.
  /// @throws what `work` threw.
  void Finish(std::size_t piece);

 private:
  struct Piece {
    bool done = false;
    std::exception_ptr error;
  };

  void StartThread();
  void Help();

  /// Does the piece that has waited longest. The lock is held before and after, not meanwhile.
  void DoNext(std::unique_lock<std::mutex>& lock);

  std::function<void(std::size_t)> work_;
  std::size_t helpers_;
  std::mutex mutex_;  // of what follows
  std::condition_variable added_;
  std::condition_variable done_;
  std::vector<Piece> pieces_;
  std::deque<std::size_t> waiting_;
  std::size_t idle_ = 0;  // how many threads wait for a piece
  bool ending_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace lakresvos::render

#endif
