#include "robot/Run.h"

#include "base/Literals.h"
#include "robot/Player.h"
#include "system/Apart.h"
#include "system/Endings.h"

#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cstdio>

namespace vorta::robot {

namespace {

/// What the process of a scenario tells: numbers of lines as they are reached, then its verdict.
constexpr char reached = 'L';
constexpr char failed = 'F';
constexpr char passed = 'P';

/// More than the longest wait for a server.
constexpr unsigned secondsForACommand = 450;

using system::ApartEnd;
using system::TellFromApart;

/// What a process of its own does; it may tell which lines it reaches.
using Part = std::function<std::optional<Verdict>(const TellFromApart& tell)>;

void doAndTell(const TellFromApart& tell, const Part& part) {
    const auto verdict = [&]() -> std::optional<Verdict> {
        try {
            return part(tell);
        } catch (const Failure& failure) {
            return Verdict{0, failure.message};
        } catch (const std::exception& error) {
            return Verdict{0, QString::fromUtf8(error.what())};
        }
    }();
    if (verdict)
        tell(failed + QByteArray::number(verdict->line) + ':' + verdict->message.toUtf8() + '\0');
    else
        tell(QByteArray(1, passed) + '\0');
}

QString wordsOf(const ApartEnd& end) {
    switch (end.how) {
    case ApartEnd::How::Ended:
        break;
    case ApartEnd::How::OutOfTime:
        return u"expected the command to end, it ran for %1 seconds"_s.arg(secondsForACommand);
    case ApartEnd::How::Crashed:
        return u"expected a running program, it crashed with signal %1"_s.arg(end.number);
    }
    return u"expected a verdict, the process ended with %1"_s.arg(end.number);
}

/// The verdict that the messages of a process carry; a process that told none has crashed at the last line it reached.
std::optional<Verdict> verdictOf(const ApartEnd& end) {
    int line = 0;
    for (const QByteArray& message : end.told.split('\0')) {
        if (message.startsWith(reached))
            line = message.mid(1).toInt();
        else if (message.startsWith(passed))
            return {};
        else if (message.startsWith(failed)) {
            const qsizetype colon = message.indexOf(':');
            return Verdict{message.mid(1, colon - 1).toInt(), QString::fromUtf8(message.mid(colon + 1))};
        }
    }
    return Verdict{line, wordsOf(end)};
}

std::optional<Verdict> doApart(const Part& part) {
    const auto end = system::DoApart([&](const TellFromApart& tell) { doAndTell(tell, part); });
    return end ? verdictOf(*end) : Verdict{0, u"no process for the scenario"_s};
}

std::optional<Verdict> playApart(const Scenario& scenario, const PlayOne& play) {
    const QTemporaryDir copy;
    if (!copy.isValid())
        return Verdict{0, u"no room for a copy of the installation"_s};
    return doApart([&](const TellFromApart& tellWaiting) {
        system::EndOnWish(); // a scenario may be interrupted, the clearing behind it not
        return play(scenario, copy.path(), [&](int line) {
            system::LimitTime(secondsForACommand);
            tellWaiting(reached + QByteArray::number(line) + '\0');
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
    ValueOption{"--log", &Options::log},       ValueOption{"--standing", &Options::standing},
    ValueOption{"--keep", &Options::keep},
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
    // It ends behind a scenario, so that nothing of it stays anywhere.
    system::NoteEndings();
    int failures = 0;
    int played = 0;
    for (const Scenario& scenario : scenarios) {
        if (system::EndingWanted())
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
    return failures == 0 && !system::EndingWanted() ? 0 : 1;
}

void WorkApart(const std::function<void()>& work) {
    const auto verdict = doApart([&](const TellFromApart&) {
        work();
        return std::optional<Verdict>();
    });
    if (verdict)
        throw Failure{verdict->message};
}

} // namespace vorta::robot
