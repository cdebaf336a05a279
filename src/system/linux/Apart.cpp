#include "system/Apart.h"

#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

namespace vorta::system {

namespace {

bool write(int pipe, const QByteArray& message) {
    for (qsizetype sent = 0; sent < message.size();) {
        const ssize_t part = ::write(pipe, message.constData() + sent, static_cast<size_t>(message.size() - sent));
        if (part <= 0)
            return false;
        sent += part;
    }
    return true;
}

QByteArray readAll(int pipe) {
    QByteArray all;
    char buffer[4096];
    for (ssize_t count; (count = ::read(pipe, buffer, sizeof buffer)) > 0;)
        all.append(buffer, count);
    return all;
}

} // namespace

std::optional<ApartEnd> DoApart(const std::function<void(const TellFromApart& tell)>& work) {
    int ends[2];
    if (::pipe(ends) != 0)
        return std::nullopt;
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        work([pipe = ends[1]](const QByteArray& message) { return write(pipe, message); });
        std::fflush(nullptr);
        ::_exit(0);
    }
    ::close(ends[1]);
    ApartEnd end;
    if (child > 0)
        end.told = readAll(ends[0]);
    ::close(ends[0]);
    if (child < 0)
        return std::nullopt;
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) {
        end.number = WTERMSIG(status);
        end.how = end.number == SIGALRM ? ApartEnd::How::OutOfTime : ApartEnd::How::Crashed;
    } else {
        end.number = WEXITSTATUS(status);
    }
    return end;
}

void LimitTime(unsigned seconds) {
    ::alarm(seconds);
}

} // namespace vorta::system
