#ifndef TESTS_SUPPORT_SMALLSTACK_H
#define TESTS_SUPPORT_SMALLSTACK_H

#include <functional>
#include <gtest/gtest.h>
#include <pthread.h>

/// Runs `action` on a stack that would not hold a call for each of a few thousand levels.
inline void OnASmallStack(std::function<void()> action) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 128UL * 1024), 0);
  pthread_t thread;
  auto const run = [](void* call) -> void* {
    (*static_cast<std::function<void()>*>(call))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &action), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

#endif
