#include "bench/RoleCases.h"

#include "bench/BareClient.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Ddl.h"
#include "person/frmPessoas.h"
#include "roles/RegistraTelasPapeis.h"
#include "screen/User.h"
#include "shared/Vinculos.h"

#include <QRegularExpression>
#include <QTemporaryDir>

namespace vorta::bench {

namespace {

constexpr int persons = 200; ///< each a supplier with twenty contacts
constexpr int openings = 100;
constexpr int saves = 20;
constexpr int paintings = 300;

/// Somebody who says yes to everything and works on a screen the moment it is shown.
class BenchPlatform : public screen::Platform {
  public:
    screen::Answer messageBox(const screen::Box&) override { return screen::Answer::Yes; }
    void runModal(screen::Screen& shown) override {
        if (work)
            work(shown);
        shown.Unload();
    }
    void openAddress(const QString&) override {}
    QString home() const override { return {}; }
    bool fileExists(const QString&) const override { return true; }

    std::function<void(screen::Screen&)> work;
};

/// A statement as the engine takes it without the register's help: days with dashes.
QByteArray spoken(QString text) {
    static const QRegularExpression day(QStringLiteral("'(\\d{4})(\\d{2})(\\d{2})'"));
    return text.replace(day, QStringLiteral("'\\1-\\2-\\3'")).toUtf8();
}

/// One database, seen by role screens and by the bare client.
class RoleBench {
  public:
    RoleBench() : path_(folder_.filePath(QStringLiteral("roles.fdb"))) {
        firebird::CreateDatabase(path_);
        bare_ = std::make_unique<BareClient>(path_);
        fill();
        contexto_.RegistraTela(QStringLiteral("frmPessoas"),
                               [](ContextoExecucao& owner) { return std::make_unique<frmPessoas>(owner); });
        RegistraTelasPapeis(contexto_);
        contexto_.TipoBanco = QStringLiteral("FIREBIRD");
        contexto_.ConexaoPrincipal = contexto_.novaConexao();
        contexto_.ConexaoPrincipal->Open(data::Engine::Firebird, path_);
    }

    int person(int step) const { return 1 + step % persons; }

    void opens(int step) {
        platform_.work = {};
        shows(step);
    }
    void saves(int step) {
        platform_.work = [this](screen::Screen& shown) {
            user_.click(shown.field(QStringLiteral("cmdALTERAR")));
            user_.click(shown.field(QStringLiteral("cmdSALVAR")));
        };
        shows(step);
    }
    void paints(int step) {
        screen::Screen& tela = contexto_.Tela(QStringLiteral("frmPessoas"));
        tela.field(QStringLiteral("txtRowID")).setText(QString::number(person(step)));
        AtualizaIndicadoresVinculo(contexto_, tela);
    }

    /// The statements of a piece of work, for the bare client.
    QStringList statementsOf(const std::function<void()>& work) {
        heard_.clear();
        listening_ = true;
        work();
        listening_ = false;
        if (program_.hasEnded())
            throw program_.failure().value_or(RuntimeError(errorNumber::ObjectNotSet));
        return heard_;
    }

    void sendsBare(const QStringList& statements) {
        // A save writes from its first write to its last one in one transaction.
        const auto isWrite = [](const QString& text) { return !text.startsWith(u"select", Qt::CaseInsensitive); };
        const auto first = std::find_if(statements.begin(), statements.end(), isWrite);
        const auto last = std::find_if(statements.rbegin(), statements.rend(), isWrite).base();
        for (auto text = statements.begin(); text != statements.end(); ++text) {
            if (text == first)
                bare_->begin();
            bare_->send(spoken(*text));
            if (first != statements.end() && text + 1 == last)
                bare_->commit();
        }
    }

  private:
    void shows(int step) {
        contexto_.IdPessoaVinculo = QString::number(person(step));
        program_.dispatch([this] { contexto_.MostraTela(QStringLiteral("frmFornecedor")); });
    }

    void fill() {
        for (const QString& statement : kit::TableStatements(data::Engine::Firebird, kit::Base::Main))
            bare_->send(statement.toUtf8());
        bare_->send("execute block as declare p integer = 1; declare c integer; begin while (p <= 200) do begin "
                    "insert into pess (idpess, nome_pess) values (:p, 'FORNECEDOR ' || :p); "
                    "insert into forn (idforn, idpess, data_cred, limi_copr, desconto_forn) "
                    "values (gen_id(GEN_FORN, 1), :p, '2020-01-01', 100, 5); "
                    "c = 0; while (c < 20) do begin "
                    "insert into forn_cont (idforn_cont, idforn, carg_forn_cont, nome_forn_cont, tele_forn_cont, "
                    "emai_forn_cont, data_nasc) values (gen_id(GEN_FORN_CONT, 1), :p, 'COMPRADOR', 'CONTATO ' || :c, "
                    "'11 5555-1234', 'CONTATO@FORNECEDOR.COM.BR', '25/12'); "
                    "c = c + 1; end p = p + 1; end end");
        bare_->send("execute block as declare i integer = 1; begin while (i <= 30) do begin "
                    "insert into carg (idcarg, desc_carg) values (:i, 'CARGO ' || :i); i = i + 1; end end");
        for (const QString& statement : kit::IndexStatements(data::Engine::Firebird, kit::Base::Main))
            bare_->send(statement.toUtf8());
    }

    QTemporaryDir folder_;
    QString path_;
    std::unique_ptr<BareClient> bare_;
    BenchPlatform platform_;
    screen::Program program_{platform_};
    screen::User user_{program_};
    QStringList heard_;
    bool listening_ = false;
    ContextoExecucao contexto_{program_, [](data::Engine) { return data::MakeFirebirdAdapter(); },
                               [this](const QString& text) {
                                   if (listening_)
                                       heard_ += text;
                               }};
};

using Bench = std::shared_ptr<RoleBench>;

/// The register's work against the statements that it sends, the same persons in the same order.
Case work(const Bench& bench, const char* name, const char* unit, int steps, void (RoleBench::*ours)(int),
          double limit) {
    auto statements = std::make_shared<std::vector<QStringList>>();
    return {QString::fromUtf8(name), QString::fromUtf8(unit),
            [=] {
                for (int step = static_cast<int>(statements->size()); step < steps; ++step)
                    statements->push_back(bench->statementsOf([&] { ((*bench).*ours)(step); }));
                return Microseconds(steps, [&] {
                    for (const QStringList& sent : *statements)
                        bench->sendsBare(sent);
                });
            },
            [=] {
                return Microseconds(steps, [&] {
                    for (int step = 0; step < steps; ++step)
                        ((*bench).*ours)(step);
                });
            },
            limit};
}

} // namespace

std::vector<Case> RoleCases() {
    const Bench bench = std::make_shared<RoleBench>();
    return {work(bench, "roles: screen with 20 contacts opened", "us/opening", openings, &RoleBench::opens, 1.3),
            work(bench, "roles: screen with 20 contacts saved", "us/save", saves, &RoleBench::saves, 1.2),
            work(bench, "roles: seven indicators", "us/painting", paintings, &RoleBench::paints, 0.5)};
}

} // namespace vorta::bench
