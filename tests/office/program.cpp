// A user of the office: office_user HOME [LOCK-HOME]. Commands come on the standard input, one a line with tabs between
// the words, and are answered by one line each; "work" tells every deed on a line of its own before its answer.

#include "base/Crash.h"
#include "base/EngineWatch.h"
#include "base/Literals.h"
#include "firebird/EmbeddedEngine.h"
#include "office/OfficeWork.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

namespace {

using vorta::test::OfficeWork;
using namespace Qt::StringLiterals;

void tell(const QString& line) {
    std::printf("%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

/// A clock that all processes of the machine share.
QString now() {
    QElapsedTimer timer;
    timer.start();
    return QString::number(timer.msecsSinceReference());
}

void alter(OfficeWork& work, const QString& id, const QString& mark) {
    const QString begin = now();
    if (work.alter(id, mark))
        tell(u"altered\t%1\t%2\t%3\t%4"_s.arg(id, mark, begin, now()));
    else
        tell(u"error\tthe alteration of %1 was not saved"_s.arg(id));
}

void include(OfficeWork& work, const QString& name, const QString& mark, quint64 document) {
    const QString id = work.include(name, mark, document);
    if (id.isEmpty())
        tell(u"error\tthe inclusion of %1 was not saved"_s.arg(name));
    else
        tell(u"included\t%1\t%2"_s.arg(id, name));
}

void saveRole(OfficeWork& work, const QString& id, const QString& table, const QString& mark) {
    for (const vorta::Papel& role : vorta::papeis)
        if (role.tabela.toString() == table)
            tell((work.saveRole(id, role, mark) ? u"role\t%1\t%2"_s : u"error\tthe role %2 of %1 was not saved"_s)
                     .arg(id, table));
}

void find(OfficeWork& work, const QString& name) {
    tell(QStringList{u"found"_s, work.find(name).join(u'\t')}.join(u'\t'));
}

/// Includes a person, finds it, alters one of those that all colleagues alter, and again, without a pause.
void workFor(OfficeWork& work, int seconds, int number, const QStringList& shared) {
    constexpr quint64 documentsOfAUser = 100'000;
    QElapsedTimer time;
    time.start();
    for (int round = 1; !time.hasExpired(seconds * 1000LL) && !work.hasEnded(); ++round) {
        const QString mark = u"U%1 N%2"_s.arg(number, 2, 10, QChar(u'0')).arg(round);
        const QString name = u"CARGA "_s + mark;
        include(work, name, mark, static_cast<quint64>(number) * documentsOfAUser + static_cast<quint64>(round));
        find(work, name);
        alter(work, shared[(round + number) % shared.size()], mark);
    }
    tell(u"done"_s);
}

void obey(OfficeWork& work) {
    tell(u"here"_s);
    for (std::string line; !work.hasEnded() && std::getline(std::cin, line);) {
        const QStringList words = QString::fromStdString(line).split(u'\t');
        if (words[0] == u"include")
            include(work, words[1], words[2], words[3].toULongLong());
        else if (words[0] == u"alter")
            alter(work, words[1], words[2]);
        else if (words[0] == u"find")
            find(work, words[1]);
        else if (words[0] == u"die")
            work.dieAt(words[1].toInt());
        else if (words[0] == u"die-in-role")
            work.dieInRoleAt(words[1].toInt());
        else if (words[0] == u"role")
            saveRole(work, words[1], words[2], words[3]);
        else if (words[0] == u"work")
            workFor(work, words[1].toInt(), words[2].toInt(), words.mid(3));
    }
}

} // namespace

int main(int count, char** arguments) {
    QCoreApplication application(count, arguments);
    if (count < 2 || count > 3)
        return 2;
    if (count == 3)
        vorta::firebird::PrepareEmbeddedEngine(QString::fromLocal8Bit(arguments[2]));
    qputenv("VORTA_HOME", arguments[1]);
    vorta::TellCrashes();
    const vorta::EngineWatch watch([](int seconds, const auto& over) { return vorta::TellAndWait(seconds, over); },
                                   [] { std::_Exit(1); });
    OfficeWork work(QString::fromLocal8Bit(arguments[1]), tell);
    return work.spend([&] { obey(work); }) ? 0 : 1;
}
