// SPDX-License-Identifier: GPL-2.0-or-later
// A web server of one file on this machine, which answers with the bytes that it is asked for.
#pragma once

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>

namespace tessarine::testing {

class RangeServer {
 public:
  RangeServer(std::string name, std::string content) : name_(std::move(name)), content_(std::move(content)) {
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), length) != 0 || listen(listener_, 16) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
      std::abort();
    }
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
  }
  ~RangeServer() {
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
  }
  RangeServer(const RangeServer&) = delete;
  RangeServer& operator=(const RangeServer&) = delete;

  [[nodiscard]] std::string Address() const { return "http://127.0.0.1:" + std::to_string(port_) + "/" + name_; }
  /// How many bytes of the file went out.
  [[nodiscard]] std::size_t Sent() const { return sent_; }

 private:
  void Serve() {
    for (;;) {
      const int connection = accept(listener_, nullptr, nullptr);
      if (connection < 0) return;
      Answer(connection, Request(connection));
      close(connection);
    }
  }

  static std::string Request(int connection) {
    std::string text;
    std::array<char, 2048> block{};
    while (text.find("\r\n\r\n") == std::string::npos) {
      const ssize_t count = recv(connection, block.data(), block.size(), 0);
      if (count <= 0) break;
      text.append(block.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

  void Answer(int connection, const std::string& request) {
    const bool head = request.starts_with("HEAD ");
    if (request.find(" /" + name_ + " ") == std::string::npos) {
      return Send(connection, "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
    }
    std::size_t first = 0, last = content_.size() - 1;
    const std::size_t range = request.find("Range: bytes=");
    if (range != std::string::npos) {
      char* end = nullptr;
      first = std::strtoul(request.c_str() + range + 13, &end, 10);
      const std::size_t asked = std::strtoul(end + 1, nullptr, 10);
      if (asked > 0 && asked < last) last = asked;
    }
    const std::size_t count = first <= last ? last - first + 1 : 0;
    std::string answer = range == std::string::npos ? "HTTP/1.1 200 OK\r\n" : "HTTP/1.1 206 Partial Content\r\n";
    if (range != std::string::npos) {
      answer += "Content-Range: bytes " + std::to_string(first) + "-" + std::to_string(last) + "/" +
                std::to_string(content_.size()) + "\r\n";
    }
    answer += "Accept-Ranges: bytes\r\nContent-Length: " + std::to_string(count) + "\r\nConnection: close\r\n\r\n";
    if (!head) {
      answer += content_.substr(first, count);
      sent_ += count;
    }
    Send(connection, answer);
  }

  static void Send(int connection, const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
      const ssize_t count = send(connection, text.data() + done, text.size() - done, MSG_NOSIGNAL);
      if (count <= 0) return;
      done += static_cast<std::size_t>(count);
    }
  }

  std::string name_, content_;
  int listener_ = -1;
  int port_ = 0;
  std::atomic<std::size_t> sent_ = 0;
  std::thread thread_;
};

}  // namespace tessarine::testing
