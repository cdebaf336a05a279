#include "base/RuntimeError.h"
#include "firebird/EmbeddedEngine.h"
#include "kit/Create.h"
#include "kit/Ddl.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

namespace {

using namespace vorta;

constexpr int failed = 1;
constexpr int misused = 2;

constexpr char usage[] = "uso: pessoas-base create --home PASTA [--demo] [--people N] [--seed S]\n"
                         "     pessoas-base ddl firebird|sqlserver\n"
                         "     pessoas-base cep --home PASTA ARQUIVO\n"
                         "     pessoas-base check --home PASTA\n";

int create(const QString& home, const kit::Contents& contents) {
    firebird::PrepareEmbeddedEngine(home);
    kit::CreateInstallation(home, contents);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments().sliced(1);
    try {
        if (arguments.value(0) == u"ddl") {
            std::fputs(kit::Script(arguments.value(1) == u"sqlserver" ? data::Engine::SqlServer : data::Engine::Firebird)
                           .toUtf8(),
                       stdout);
            return 0;
        }
        const qsizetype at = arguments.indexOf(QStringLiteral("--home"));
        if (arguments.value(0) == u"create" && at > 0)
            return create(arguments.value(at + 1), {});
        std::fputs(usage, stderr);
        return misused;
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return failed;
    }
}
