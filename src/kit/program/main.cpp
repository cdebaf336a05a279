#include "base/Crash.h"
#include "base/EngineWatch.h"
#include "base/RuntimeError.h"
#include "data/Engine.h"
#include "kit/FaultWords.h"
#include "kit/Progress.h"
#include "kit/program/Command.h"
#include "system/Endings.h"
#include "system/Session.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

using namespace vorta;
using namespace vorta::program;

struct Command {
    const char* name;
    Run run;
    const char* words; ///< behind the name; %1 stands for the engines; none for what is no user's
    const char* help;  ///< lines
};

constexpr std::array commands{
    Command{"create", Create, "--home PASTA [--demo] [--people N] [--seed S]",
            "cria uma instalação na PASTA: bases, configuração e imagens; com --demo, os dados\n"
            "de uma pequena empresa; com --people, mais N pessoas (as mesmas para a mesma semente)"},
    Command{"ddl", Ddl, "%1", "mostra as definições das tabelas"},
    Command{"cep", Cep, "--home PASTA ARQUIVO", "carrega uma lista de logradouros na base de CEPs (veja docs/cep.md)"},
    Command{kit::TryBase, Try, nullptr, nullptr},
    Command{"importar", Importar, "--home PASTA [--grava] [--colunas ARQUIVO] [--chamada TEXTO] ARQUIVO.csv",
            "inclui as pessoas de uma planilha pelas telas do cadastro (veja docs/importacao.md); sem\n"
            "--grava é um ensaio, que mostra o que seria recusado e não grava nada"},
    Command{"check", Check, "--home PASTA", "verifica uma instalação e diz o que falta"},
    Command{"backup", Backup, "--home PASTA [--base NOME] ARQUIVO",
            "copia uma base para o ARQUIVO, com o programa em uso; NOME é PRD (o padrão), HIST,\n"
            "DEV ou CEP"},
    Command{"restore", Restore, "--home PASTA [--base NOME] [--replace] ARQUIVO",
            "refaz uma base a partir da cópia; com --replace, no lugar da que existe"},
    Command{"verify", Verify, "--home PASTA [--base NOME]",
            "verifica uma base inteira: páginas, índices e registros sem a sua pessoa"},
    Command{"upgrade", Upgrade, "--home PASTA",
            "traz os dados de uma instalação feita por uma versão anterior à forma de hoje"},
    Command{"conferir", Conferir, "--home PASTA [--base NOME] [--csv ARQUIVO] [--html ARQUIVO]",
            "confere o cadastro inteiro, sem gravar nada: documentos, inscrições, pessoas repetidas,\n"
            "cidades, CEPs, e-mails e vínculos (veja docs/conferencia.md)"},
    Command{"conferir", Conferir, "--home PASTA [--base NOME] --corrige-municipios [--grava] [--csv ARQUIVO]",
            "preenche os códigos de município vazios; sem --grava é um ensaio, que só diz quais"},
    Command{"indexes", Indexes, "--home PASTA [--base NOME] | sqlserver",
            "põe em dia os índices de uma base feita por outra versão, com o programa fechado;\n"
            "sqlserver mostra os comandos que fazem o mesmo lá"},
};

int misuse() {
    QString lead = u"uso: "_s;
    for (const Command& command : commands) {
        if (!command.words)
            continue;
        const QString words = QString::fromUtf8(command.words).replace(u"%1"_s, data::EngineNames(u"|"_s));
        Say(stderr, u"%1pessoas-base %2 %3"_s.arg(lead, QString::fromUtf8(command.name), words));
        lead = QString(lead.size(), u' ');
    }
    Say(stderr, {});
    for (const Command& command : commands) {
        if (!command.words)
            continue;
        constexpr int column = 10;
        QString name = QString::fromUtf8(command.name);
        for (const QString& line : QString::fromUtf8(command.help).split(u'\n')) {
            Say(stderr, name.leftJustified(column) + line);
            name.clear();
        }
    }
    return misused;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments().sliced(1);
    const auto command = std::find_if(commands.begin(), commands.end(), [&](const Command& each) {
        return words.value(0) == QLatin1StringView(each.name);
    });
    if (command == commands.end())
        return misuse();
    TellCrashes();
    try {
        const EngineCall engine; // next to nothing else is done here
        const std::optional<Outcome> outcome = command->run(words.sliced(1));
        return outcome ? *outcome : misuse();
    } catch (const RuntimeError& error) {
        // While its client library opens a server's base for the first time, that hears of Ctrl+C too and shuts down.
        QString told = system::EndingWanted() ? kit::Interrupted().description() : kit::FaultWords(error);
        Say(stderr, told.replace(0, 1, told.first(1).toUpper()));
        return failed;
    }
}
