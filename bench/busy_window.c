// Loaded into the program by bench/capture_accuracy.py: the signal SIGUSR2 keeps the window's thread busy for a while.
#define _GNU_SOURCE
#include <errno.h>
#include <pthread.h>
#include <signal.h>
#include <time.h>

static const double kBusySeconds = 0.15;

static double now(void) {
  struct timespec time;
  clock_gettime(CLOCK_MONOTONIC, &time);
  return (double)time.tv_sec + (double)time.tv_nsec / 1e9;
}

static pthread_t window_thread;

static void be_busy(int signal_number) {
  // The kernel may pick any thread.
  if (!pthread_equal(pthread_self(), window_thread)) {
    pthread_kill(window_thread, signal_number);
    return;
  }
  const int error = errno;
  const double end = now() + kBusySeconds;
  while (now() < end) {
  }
  errno = error;
}

__attribute__((constructor)) static void listen_for_signal(void) {
  window_thread = pthread_self();
  struct sigaction action = {.sa_handler = be_busy, .sa_flags = SA_RESTART};
  sigaction(SIGUSR2, &action, NULL);
}
