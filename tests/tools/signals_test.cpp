#include "signals.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/temp_folder.h"
#include "zemva/base/atomic_file.h"

#if !defined(_WIN32)
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zemva::tools {
namespace {

// Raises the signal in a process that is writing a file; returns how that process ended.
int EndBySignal(int number, const std::string& path) {
  const pid_t child = fork();
  if (child == 0) {
    HandleSignals();
    AtomicFile file(path);
    std::fputs("half of it", file.GetStream());
    std::fflush(file.GetStream());
    raise(number);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

TEST(Signals, LeaveNoHalfWrittenFile) {
  const test::TempFolder folder;
  const std::string path = folder.File("out.csv");
  test::WriteBytes(path, "old");
  for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
    signal(number, SIG_DFL);  // nohup and others have one ignored
    const int status = EndBySignal(number, path);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == number) << number;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1) << number;
    EXPECT_EQ(test::ReadBytes(path), "old") << number;
  }
}

TEST(Signals, OneThatIsIgnoredStaysIgnored) {
  const test::TempFolder folder;
  const auto before = signal(SIGHUP, SIG_IGN);
  EXPECT_EQ(EndBySignal(SIGHUP, folder.File("out.csv")), 0);
  signal(SIGHUP, before);
}

TEST(Signals, TheFirstInterruptOfAFitIsNotedAndTheSecondEnds) {
  const pid_t child = fork();
  if (child == 0) {
    HandleSignals();
    {
      const InterruptCatcher catcher;
      if (InterruptCatcher::IsInterrupted()) _exit(1);
      raise(SIGINT);
      if (!InterruptCatcher::IsInterrupted()) _exit(2);
    }
    const InterruptCatcher next;
    if (InterruptCatcher::IsInterrupted()) _exit(3);
    raise(SIGINT);
    raise(SIGINT);
    _exit(4);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status;
}

}  // namespace
}  // namespace zemva::tools
#endif
