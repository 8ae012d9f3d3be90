#include "fresh_process.h"

#include "contest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>

namespace peers {
namespace {

/// A function's address is the same in every process that was forked from this one.
struct Request {
  double (*task)(std::size_t);
  std::size_t argument;
};

struct Answer {
  bool ok = false;
  double result = 0;
};

struct Pipe {
  Pipe() {
    if (pipe(ends.data()) != 0) fail("no pipe");
  }
  template <class T>
  bool receive(T& message) const {
    return read(ends[0], &message, sizeof message) == static_cast<ssize_t>(sizeof message);
  }
  template <class T>
  bool send(const T& message) const {
    return write(ends[1], &message, sizeof message) == static_cast<ssize_t>(sizeof message);
  }

  std::array<int, 2> ends{};
};

struct Channel {
  Pipe requests;
  Pipe answers;
};

Channel& channel() {
  static Channel instance;
  return instance;
}

/// The child sends its answer itself; for one that ends without, an answer that is not ok is sent.
void answer(const Request& request) {
  const pid_t child = fork();
  if (child == 0) {
    const double result = request.task(request.argument);
    _exit(channel().answers.send(Answer{true, result}) ? 0 : 1);
  }
  int status = 1;
  if (child < 0 || waitpid(child, &status, 0) != child || status != 0)
    channel().answers.send(Answer());
}

}  // namespace

void keepProcessFresh() {
  const Channel& ends = channel();
  const pid_t keeper = fork();
  if (keeper < 0) fail("no process");
  if (keeper > 0) {
    close(ends.requests.ends[0]);
    close(ends.answers.ends[1]);
    return;
  }
  // Without a writing end of its own the keeper sees when its parent is gone.
  close(ends.requests.ends[1]);
  Request request{};
  while (ends.requests.receive(request))
    answer(request);
  _exit(0);
}

double inFreshProcess(double (*task)(std::size_t), std::size_t argument) {
  Answer answer;
  if (!channel().requests.send(Request{task, argument}) || !channel().answers.receive(answer) ||
      !answer.ok)
    fail("a process of its own has failed");
  return answer.result;
}

}  // namespace peers
