#include "bench/PersonCases.h"

#include "base/Literals.h"
#include "bench/QuietPlatform.h"
#include "bench/RecordedWork.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Create.h"
#include "person/frmPessoas.h"
#include "screen/User.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

namespace vorta::bench {

namespace {

constexpr int people = 300;
constexpr int loads = 100;
constexpr int saves = 20;
constexpr int starts = 41; ///< rounds: nothing varies as much as the start of a process

const QString launchString = u"1^1^PRD^False^"_s;

/// An installation with its person screen, idle after the launch, on one side and the bare client on the other. It
/// stands in the home of the run: programs that are started on it find the locks of its base there.
class PersonBench {
    QString home_ = qEnvironmentVariable("VORTA_HOME");

  public:
    PersonBench() {
        kit::CreateInstallation(home_, {.people = people});
        contexto_.LinhaComando = launchString;
        atStart_ = statementsOf([this] { program_.ShowModal(tela_); });
        bare_ = std::make_unique<BareClient>(contexto_.StringConexaoFirebird);
        fillLists();
        loads(0);
    }

    void loads(int step) {
        tela_.txtRowID.setText(QString::number(1 + step % people));
        act([this] { user_.click(tela_.cmdPesquisar_Cliente); });
    }
    /// Writes the person on the screen.
    void saves(int) {
        act([this] { user_.click(tela_.cmdALTERAR); });
        act([this] { user_.click(tela_.cmdSALVAR); });
        if (ModoAtual(contexto_) != Modo::Ocioso)
            throw std::runtime_error("the alteration has been refused");
    }

    Recorder::Statements statementsOf(const std::function<void()>& work) { return recorder_.record(work); }
    void sendsBare(const Recorder::Statements& statements) { Recorder::repeat(*bare_, statements); }

    /// Milliseconds until a program of its own has painted its window: a "bare" one or one with the "form".
    double startsBare(const char* window) {
        const QString list = home_ + u"/inicio.sql"_s;
        if (QFile file(list); !file.exists() && file.open(QIODevice::WriteOnly))
            file.write(atStart_.join('\n'));
        return starts({QString::fromLatin1(window), contexto_.StringConexaoFirebird, list});
    }
    double startsRegister() { return starts({u"register"_s, launchString}); }

  private:
    void act(const std::function<void()>& event) {
        if (!program_.dispatch(event))
            throw program_.failure().value_or(RuntimeError(errorNumber::ObjectNotSet));
    }

    /// Twenty contacts and twenty branches for everybody.
    void fillLists() {
        bare_->send("delete from pess_cont");
        bare_->send("delete from pess_ativ");
        bare_->send("execute block as declare p integer; declare a integer; declare c integer; begin "
                    "for select idpess from pess into :p do begin "
                    "c = 0; while (c < 20) do begin "
                    "insert into pess_cont (idpess_cont, idpess, carg_pess_cont, nome_pess_cont, tele_pess_cont, "
                    "emai_pess_cont, data_nasc) values (gen_id(GEN_PESS_CONT, 1), :p, 'COMPRADOR', 'CONTATO ' || :c, "
                    "'11 5555-1234', 'CONTATO@EMPRESA.COM.BR', '25/12'); c = c + 1; end "
                    "for select first 20 idativ from ativ order by idativ into :a do "
                    "insert into pess_ativ (idpess_ativ, idpess, idativ) values (gen_id(GEN_PESS_ATIV, 1), :p, :a); "
                    "end end");
    }

    double starts(const QStringList& arguments) {
        QProcess started;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"VORTA_HOME"_s, home_);
        environment.insert(u"XDG_CONFIG_HOME"_s, home_);
        if (!environment.contains(u"QT_QPA_PLATFORM"_s))
            environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        started.setProcessEnvironment(environment);
        const double milliseconds = Microseconds(1000, [&] {
            started.start(QCoreApplication::applicationDirPath() + u"/pessoas-bench-start"_s, arguments);
            started.waitForReadyRead();
        });
        started.waitForFinished();
        if (started.readAllStandardOutput().trimmed() != "painted" || started.exitCode() != 0)
            throw std::runtime_error("no window was painted: " + started.readAllStandardError().toStdString());
        return milliseconds;
    }

    QuietPlatform platform_{home_};
    screen::Program program_{platform_};
    screen::User user_{program_};
    Recorder recorder_;
    ContextoExecucao contexto_{program_, [](data::Engine) { return data::MakeFirebirdAdapter(); },
                               [this](const QString& text) { recorder_.hear(text); }};
    frmPessoas tela_{contexto_};
    Recorder::Statements atStart_;
    std::unique_ptr<BareClient> bare_;
};

using Bench = Lazy<PersonBench>;

/// The register's start against a window, an attachment and the same statements with nothing of the register.
Case start(const Bench& bench, const char* name, const char* window, double limit) {
    return {QString::fromUtf8(name),
            u"ms"_s,
            [=] { return bench->startsBare(window); },
            [=] { return bench->startsRegister(); },
            limit,
            starts};
}

} // namespace

std::vector<Case> PersonCases() {
    const Bench bench;
    return {
        RecordedWork(bench, "person: loaded with 20 contacts and branches", "us/load", loads, &PersonBench::loads, 1.3),
        RecordedWork(bench, "person: saved with 20 contacts and branches", "us/save", saves, &PersonBench::saves, 1.2),
        start(bench, "person: start, against an empty window", "bare", 1.4),
        start(bench, "person: start, against its form alone", "form", 1.5)};
}

} // namespace vorta::bench
