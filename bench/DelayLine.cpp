#include "bench/DelayLine.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <deque>
#include <list>
#include <vector>

namespace kvi::bench {
namespace {

using Clock = std::chrono::steady_clock;

sockaddr_un AddressOf(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
  return address;
}

int Connected(const std::string& path, decltype(::connect)* how) {
  const sockaddr_un address = AddressOf(path);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  if (how(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return socket;
  close(socket);
  return -1;
}

// What one side says to the other, on its way.
class Way {
 public:
  Way(int from, int to) : from_(from), to_(to) {}

  int From() const { return from_; }
  void Take(Clock::duration delay) {
    char text[65536];
    const ssize_t size = recv(from_, text, sizeof text, MSG_DONTWAIT);
    if (size > 0)
      underWay_.push_back({Clock::now() + delay, {text, static_cast<std::size_t>(size)}});
    if (size == 0 || (size < 0 && errno != EAGAIN && errno != EINTR)) ended_ = true;
  }
  // Hands on what is due.
  void Give() {
    while (!underWay_.empty() && underWay_.front().due <= Clock::now()) {
      std::string& text = underWay_.front().text;
      const ssize_t size = send(to_, text.data(), text.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
      if (size < 0) return;
      text.erase(0, static_cast<std::size_t>(size));
      if (!text.empty()) return;
      underWay_.pop_front();
    }
  }
  bool IsOver() const { return ended_ && underWay_.empty(); }
  bool IsOpen() const { return !ended_; }
  Clock::time_point Due(Clock::time_point latest) const {
    return underWay_.empty() ? latest : std::min(latest, underWay_.front().due);
  }

 private:
  struct Piece {
    Clock::time_point due;
    std::string text;
  };

  int from_, to_;
  bool ended_ = false;
  std::deque<Piece> underWay_;
};

struct Line {
  Way there, back;
};

timespec Until(Clock::time_point due) {
  // A send that found no room is tried again a little later.
  const auto wait = std::max(due - Clock::now(), Clock::duration(std::chrono::microseconds(20)));
  return {0, std::chrono::duration_cast<std::chrono::nanoseconds>(wait).count()};
}

}  // namespace

bool RunDelayLine(const std::string& from, const std::string& to, std::chrono::microseconds delay) {
  unlink(from.c_str());
  const int listening = Connected(from, ::bind);
  if (listening < 0 || listen(listening, 256) != 0) return false;
  std::list<Line> lines;
  for (;;) {
    std::vector<pollfd> ends{{listening, POLLIN, 0}};
    std::vector<Way*> ways;
    auto due = Clock::now() + std::chrono::milliseconds(500);
    for (Line& line : lines) {
      for (Way* way : {&line.there, &line.back}) {
        due = way->Due(due);
        if (!way->IsOpen()) continue;
        ends.push_back({way->From(), POLLIN, 0});
        ways.push_back(way);
      }
    }
    const timespec wait = Until(due);
    ppoll(ends.data(), ends.size(), &wait, nullptr);
    for (std::size_t i = 0; i < ways.size(); ++i)
      if (ends[i + 1].revents != 0) ways[i]->Take(delay);
    for (Line& line : lines) {
      line.there.Give();
      line.back.Give();
    }
    std::erase_if(lines, [](const Line& line) {
      if (!line.there.IsOver() && !line.back.IsOver()) return false;
      close(line.there.From());
      close(line.back.From());
      return true;
    });
    if (ends[0].revents == 0) continue;
    const int desk = accept(listening, nullptr, nullptr), server = Connected(to, ::connect);
    if (desk >= 0 && server >= 0) lines.push_back({{desk, server}, {server, desk}});
  }
}

}  // namespace kvi::bench
