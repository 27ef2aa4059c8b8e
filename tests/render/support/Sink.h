#ifndef TESTS_RENDER_SUPPORT_SINK_H
#define TESTS_RENDER_SUPPORT_SINK_H

#include <streambuf>

/// Takes everything and keeps nothing.
class Sink : public std::streambuf {
 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(char const* /*text*/, std::streamsize count) override { return count; }
};

#endif
