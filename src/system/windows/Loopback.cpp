#include "system/Loopback.h"

#include <cstdint>
#include <winsock2.h>

namespace vorta::system {

namespace {

/// A socket of the loopback address, for as long as the object lives.
class Socket {
  public:
    explicit Socket(int port) {
        WSADATA started;
        ::WSAStartup(MAKEWORD(2, 2), &started);
        handle_ = ::socket(AF_INET, SOCK_STREAM, 0);
        address_.sin_family = AF_INET;
        address_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address_.sin_port = htons(static_cast<std::uint16_t>(port));
    }
    ~Socket() {
        ::closesocket(handle_);
        ::WSACleanup();
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    bool connect() { return ::connect(handle_, address(), size_) == 0; }
    int bind() {
        return ::bind(handle_, address(), size_) == 0 && ::getsockname(handle_, address(), &size_) == 0
                   ? ntohs(address_.sin_port)
                   : 0;
    }

  private:
    sockaddr* address() { return reinterpret_cast<sockaddr*>(&address_); }
    SOCKET handle_;
    sockaddr_in address_{};
    int size_ = sizeof address_;
};

} // namespace

int FreePort() {
    return Socket(0).bind();
}

bool AnswersOnPort(int port) {
    return Socket(port).connect();
}

} // namespace vorta::system
