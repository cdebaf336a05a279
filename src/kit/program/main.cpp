#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "firebird/EmbeddedEngine.h"
#include "kit/Check.h"
#include "kit/ConfigFiles.h"
#include "kit/Create.h"
#include "kit/Ddl.h"
#include "kit/PostalCodes.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QStringList>

#include <cstdio>
#include <map>
#include <optional>
#include <unistd.h>

namespace {

using namespace vorta;

constexpr int succeeded = 0;
constexpr int failed = 1;
constexpr int misused = 2;

/// %1 stands for the engines.
constexpr char usage[] =
    "uso: pessoas-base create --home PASTA [--demo] [--people N] [--seed S]\n"
    "     pessoas-base ddl %1\n"
    "     pessoas-base cep --home PASTA ARQUIVO\n"
    "     pessoas-base check --home PASTA\n"
    "\n"
    "create  cria uma instalação na PASTA: bases, configuração e imagens; com --demo, os dados\n"
    "        de uma pequena empresa; com --people, mais N pessoas (as mesmas para a mesma semente)\n"
    "ddl     mostra as definições das tabelas\n"
    "cep     carrega uma lista de logradouros na base de CEPs (veja docs/cep.md)\n"
    "check   verifica uma instalação e diz o que falta\n";

void say(FILE* where, const QString& line) {
    std::fprintf(where, "%s\n", qUtf8Printable(line));
}

/// The words behind the command: options with their values, and what stands alone.
struct Arguments {
    std::map<QString, QString> options;
    QStringList rest;
    bool wrong = false;

    Arguments(const QStringList& words, const QStringList& withValue, const QStringList& without) {
        for (qsizetype i = 0; i < words.size(); ++i) {
            const QString& word = words[i];
            if (withValue.contains(word) && i + 1 < words.size())
                options[word] = words[++i];
            else if (without.contains(word))
                options[word] = {};
            else if (word.startsWith(u"--"))
                wrong = true;
            else
                rest << word;
        }
    }
    bool has(const char* name) const { return options.contains(QString::fromLatin1(name)); }
    QString value(const char* name) const {
        const auto found = options.find(QString::fromLatin1(name));
        return found == options.end() ? QString() : found->second;
    }
};

int misuse() {
    std::fputs(qUtf8Printable(QString::fromUtf8(usage).arg(data::EngineNames(u"|"_s))), stderr);
    return misused;
}

/// Shows how far a long work is, on a terminal only and not more often than one can read.
class ProgressLine {
  public:
    void operator()(const QString& what, qint64 done, qint64 all) {
        if (!terminal_ || (since_.isValid() && since_.elapsed() < 200 && done != all))
            return;
        since_.start();
        const QString line = all > 0 ? u"%1: %2 de %3"_s.arg(what).arg(done).arg(all) : what;
        std::fprintf(stderr, "\r\033[K%s", qUtf8Printable(line));
        shown_ = true;
    }
    ~ProgressLine() {
        if (shown_)
            std::fputc('\n', stderr);
    }

  private:
    bool terminal_ = isatty(STDERR_FILENO);
    bool shown_ = false;
    QElapsedTimer since_;
};

int create(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s, u"--people"_s, u"--seed"_s}, {u"--demo"_s});
    kit::Contents contents;
    bool peopleRight = true, seedRight = true;
    contents.demo = arguments.has("--demo");
    if (arguments.has("--people"))
        contents.people = arguments.value("--people").toLongLong(&peopleRight);
    if (arguments.has("--seed"))
        contents.seed = arguments.value("--seed").toULongLong(&seedRight);
    const bool inRange = contents.people >= 0 && contents.people <= kit::mostPeople;
    if (arguments.wrong || !arguments.rest.isEmpty() || arguments.value("--home").isEmpty() || !peopleRight ||
        !seedRight || !inRange)
        return misuse();
    firebird::PrepareEmbeddedEngine(arguments.value("--home"));
    ProgressLine progress;
    kit::CreateInstallation(arguments.value("--home"), contents, std::ref(progress));
    say(stdout, u"Instalação criada em %1"_s.arg(arguments.value("--home")));
    return succeeded;
}

int ddl(const QStringList& words) {
    const std::optional<data::Engine> engine = data::EngineNamed(words.value(0));
    if (!engine || words.size() != 1)
        return misuse();
    std::fputs(kit::Script(*engine).toUtf8().constData(), stdout);
    return succeeded;
}

/// The engine leaves its own folder in a home, so it is not woken for one that holds nothing.
void prepareInstallation(const QString& home) {
    const kit::Layout layout(home);
    if (!QFile::exists(layout.config(u"server_aplic.ini"_s)) && !QFile::exists(layout.config(u"server.ini"_s)))
        throw RuntimeError(errorNumber::FileNotFound, u"%1 não contém uma instalação"_s.arg(layout.home));
    firebird::PrepareEmbeddedEngine(layout.home);
}

int cep(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s}, {});
    if (arguments.wrong || arguments.rest.size() != 1 || arguments.value("--home").isEmpty())
        return misuse();
    prepareInstallation(arguments.value("--home"));
    kit::ListMistakes mistakes;
    const qint64 loaded = kit::LoadPostalCodeFile(arguments.value("--home"), arguments.rest.front(), mistakes);
    if (mistakes.all == 0) {
        say(stdout, u"%1 logradouros carregados"_s.arg(loaded));
        return succeeded;
    }
    for (const QString& line : std::as_const(mistakes.lines))
        say(stderr, line);
    say(stderr, u"%1 erro(s); nada foi carregado"_s.arg(mistakes.all));
    return failed;
}

int check(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s}, {});
    if (arguments.wrong || !arguments.rest.isEmpty() || arguments.value("--home").isEmpty())
        return misuse();
    prepareInstallation(arguments.value("--home"));
    bool right = true;
    for (const kit::Finding& finding : kit::CheckInstallation(arguments.value("--home"))) {
        say(stdout, (finding.right ? u"ok     "_s : u"FALTA  "_s) + finding.words);
        right = right && finding.right;
    }
    return right ? succeeded : failed;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    static const std::map<QString, int (*)(const QStringList&)> commands{
        {u"create"_s, create}, {u"ddl"_s, ddl}, {u"cep"_s, cep}, {u"check"_s, check}};
    const QStringList words = QCoreApplication::arguments().sliced(1);
    const auto command = commands.find(words.value(0));
    if (command == commands.end())
        return misuse();
    try {
        return command->second(words.sliced(1));
    } catch (const RuntimeError& error) {
        say(stderr, error.description());
        return failed;
    }
}
