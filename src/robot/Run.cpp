#include "robot/Run.h"

#include "base/Literals.h"
#include "robot/Player.h"

#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

namespace vorta::robot {

namespace {

/// What the process of a scenario tells: numbers of lines as they are reached, then its verdict.
constexpr char reached = 'L';
constexpr char failed = 'F';
constexpr char passed = 'P';

/// More than the longest wait for a server.
constexpr unsigned secondsForACommand = 450;

/// The wishes that a run should end. It does so behind a scenario, so that nothing of it stays anywhere.
constexpr std::array endings{SIGINT, SIGTERM};
volatile std::sig_atomic_t ending = 0;

void noteEndings() {
    struct sigaction action {};
    action.sa_handler = [](int signal) { ending = signal; };
    action.sa_flags = SA_RESTART;
    for (const int signal : endings)
        ::sigaction(signal, &action, nullptr);
}

void tell(int pipe, char kind, const QByteArray& text) {
    const QByteArray message = kind + text + '\0';
    for (qsizetype sent = 0; sent < message.size();) {
        const ssize_t part = ::write(pipe, message.constData() + sent, static_cast<size_t>(message.size() - sent));
        if (part <= 0)
            return;
        sent += part;
    }
}

/// What a process of its own does; it may tell the pipe which lines it reaches.
using Part = std::function<std::optional<Verdict>(int pipe)>;

[[noreturn]] void doInChild(int pipe, const Part& part) {
    const auto verdict = [&]() -> std::optional<Verdict> {
        try {
            return part(pipe);
        } catch (const Failure& failure) {
            return Verdict{0, failure.message};
        } catch (const std::exception& error) {
            return Verdict{0, QString::fromUtf8(error.what())};
        }
    }();
    if (verdict)
        tell(pipe, failed, QByteArray::number(verdict->line) + ':' + verdict->message.toUtf8());
    else
        tell(pipe, passed, {});
    std::fflush(nullptr);
    ::_exit(0);
}

QByteArray readAll(int pipe) {
    QByteArray all;
    char buffer[4096];
    for (ssize_t count; (count = ::read(pipe, buffer, sizeof buffer)) > 0;)
        all.append(buffer, count);
    return all;
}

QString endOf(int status) {
    if (!WIFSIGNALED(status))
        return u"expected a verdict, the process ended with %1"_s.arg(WEXITSTATUS(status));
    if (WTERMSIG(status) == SIGALRM)
        return u"expected the command to end, it ran for %1 seconds"_s.arg(secondsForACommand);
    return u"expected a running program, it crashed with signal %1"_s.arg(WTERMSIG(status));
}

/// The verdict that the messages of a process carry; a process that told none has crashed at the last line it reached.
std::optional<Verdict> verdictOf(const QByteArray& messages, int status) {
    int line = 0;
    for (const QByteArray& message : messages.split('\0')) {
        if (message.startsWith(reached))
            line = message.mid(1).toInt();
        else if (message.startsWith(passed))
            return {};
        else if (message.startsWith(failed)) {
            const qsizetype colon = message.indexOf(':');
            return Verdict{message.mid(1, colon - 1).toInt(), QString::fromUtf8(message.mid(colon + 1))};
        }
    }
    return Verdict{line, endOf(status)};
}

std::optional<Verdict> doApart(const Part& part) {
    int ends[2];
    if (::pipe(ends) != 0)
        return Verdict{0, u"no pipe for the process of the scenario"_s};
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0)
        return Verdict{0, u"no process for the scenario"_s};
    if (child == 0) {
        ::close(ends[0]);
        doInChild(ends[1], part);
    }
    ::close(ends[1]);
    const QByteArray messages = readAll(ends[0]);
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return verdictOf(messages, status);
}

std::optional<Verdict> playApart(const Scenario& scenario, const PlayOne& play) {
    const QTemporaryDir copy;
    if (!copy.isValid())
        return Verdict{0, u"no room for a copy of the installation"_s};
    return doApart([&](int pipe) {
        // A scenario may be interrupted, the clearing behind it not.
        for (const int signal : endings)
            std::signal(signal, SIG_DFL);
        return play(scenario, copy.path(), [pipe](int line) {
            ::alarm(secondsForACommand);
            tell(pipe, reached, QByteArray::number(line));
        });
    });
}

struct ValueOption {
    const char* name;
    QString Options::*place;
};

/// A whole number of an argument.
quint32 numberOf(const QString& argument, const QString& value) {
    bool isNumber = false;
    const quint32 number = value.toUInt(&isNumber);
    if (!isNumber)
        throw Failure{u"%1 needs a number"_s.arg(argument)};
    return number;
}

constexpr std::array withValue{
    ValueOption{"--home", &Options::home},     ValueOption{"--engine", &Options::engine},
    ValueOption{"--server", &Options::server}, ValueOption{"--tag", &Options::tag},
    ValueOption{"--wire", &Options::wire},     ValueOption{"--trace", &Options::trace},
    ValueOption{"--log", &Options::log},
};

} // namespace

Options Options::parse(const QStringList& arguments, const QString& defaultHome) {
    Options options;
    options.home = defaultHome;
    for (qsizetype at = 0; at < arguments.size(); ++at) {
        const QString& argument = arguments[at];
        const auto next = [&] {
            if (++at >= arguments.size())
                throw Failure{u"%1 needs a value"_s.arg(argument)};
            return arguments[at];
        };
        const auto named = std::find_if(withValue.begin(), withValue.end(), [&](const ValueOption& row) {
            return argument == QLatin1StringView(row.name);
        });
        if (named != withValue.end())
            options.*named->place = next();
        else if (argument == u"--desktop")
            options.desktop = true;
        else if (argument == u"--walk")
            options.walk = static_cast<int>(numberOf(argument, next()));
        else if (argument == u"--seed")
            options.seed = numberOf(argument, next());
        else if (argument.startsWith(u"--"))
            throw Failure{u"unknown argument %1"_s.arg(argument)};
        else
            options.files += argument;
    }
    if (options.files.isEmpty())
        throw Failure{u"no scenario file given"_s};
    if (options.walk > 0 && options.log.isEmpty())
        throw Failure{u"--walk needs a --log"_s};
    return options;
}

int RunAll(const std::vector<Scenario>& scenarios, const PlayOne& play, const std::function<void()>& behindEach) {
    noteEndings();
    int failures = 0;
    int played = 0;
    for (const Scenario& scenario : scenarios) {
        if (ending)
            break;
        ++played;
        const QByteArray file = scenario.file.toUtf8();
        if (const auto verdict = playApart(scenario, play)) {
            ++failures;
            QString message = verdict->message;
            message.replace(u'\n', u' ');
            std::printf("not ok %s:%d: %s\n", file.constData(), verdict->line, message.toUtf8().constData());
        } else {
            std::printf("ok %s\n", file.constData());
        }
        std::fflush(stdout);
        behindEach();
    }
    std::printf("%d passed, %d failed\n", played - failures, failures);
    return failures == 0 && !ending ? 0 : 1;
}

void WorkApart(const std::function<void()>& work) {
    const auto verdict = doApart([&](int) {
        work();
        return std::optional<Verdict>();
    });
    if (verdict)
        throw Failure{verdict->message};
}

} // namespace vorta::robot
