#include "bench/RoleCases.h"

#include "base/Literals.h"
#include "bench/QuietPlatform.h"
#include "bench/RecordedWork.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Ddl.h"
#include "person/frmPessoas.h"
#include "roles/RegistraTelasPapeis.h"
#include "screen/User.h"
#include "shared/Vinculos.h"

#include <QTemporaryDir>

namespace vorta::bench {

namespace {

constexpr int persons = 200; ///< each a supplier with twenty contacts
constexpr int openings = 100;
constexpr int saves = 20;
constexpr int paintings = 300;

/// Every picture of an indicator is there.
class PicturePlatform : public QuietPlatform {
  public:
    bool fileExists(const QString&) const override { return true; }
};

/// One database, seen by role screens and by the bare client.
class RoleBench {
  public:
    RoleBench() : path_(folder_.filePath(u"roles.fdb"_s)) {
        firebird::CreateDatabase(path_);
        bare_ = std::make_unique<BareClient>(path_);
        fill();
        contexto_.RegistraTela(u"frmPessoas"_s,
                               [](ContextoExecucao& owner) { return std::make_unique<frmPessoas>(owner); });
        RegistraTelasPapeis(contexto_);
        contexto_.TipoBanco = u"FIREBIRD"_s;
        contexto_.ConexaoPrincipal = contexto_.novaConexao();
        contexto_.ConexaoPrincipal->Open(data::Engine::Firebird, path_);
    }

    int person(int step) const { return 1 + step % persons; }

    void opens(int step) {
        shows(step, [](screen::Screen&) {});
    }
    void saves(int step) {
        shows(step, [this](screen::Screen& shown) {
            user_.click(shown.field(u"cmdALTERAR"_s));
            user_.click(shown.field(u"cmdSALVAR"_s));
        });
    }
    void paints(int step) {
        screen::Screen& tela = contexto_.Tela(u"frmPessoas"_s);
        tela.field(u"txtRowID"_s).setText(QString::number(person(step)));
        AtualizaIndicadoresVinculo(contexto_, tela);
    }

    Recorder::Statements statementsOf(const std::function<void()>& work) {
        const Recorder::Statements sent = recorder_.record(work);
        if (program_.hasEnded())
            throw program_.failure().value_or(RuntimeError(errorNumber::ObjectNotSet));
        return sent;
    }
    void sendsBare(const Recorder::Statements& statements) { Recorder::repeat(*bare_, statements); }

  private:
    /// A role screen on which that is done, and which is left then.
    void shows(int step, const std::function<void(screen::Screen&)>& work) {
        platform_.onShown = [&work](screen::Screen& shown) {
            work(shown);
            shown.Unload();
        };
        contexto_.IdPessoaVinculo = QString::number(person(step));
        program_.dispatch([this] { contexto_.MostraTela(u"frmFornecedor"_s); });
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
    PicturePlatform platform_;
    screen::Program program_{platform_};
    screen::User user_{program_};
    Recorder recorder_;
    ContextoExecucao contexto_{program_, [](data::Engine) { return data::MakeFirebirdAdapter(); },
                               [this](const QString& text) { recorder_.hear(text); }};
};

} // namespace

std::vector<Case> RoleCases() {
    const Lazy<RoleBench> bench;
    return {
        RecordedWork(bench, "roles: screen with 20 contacts opened", "us/opening", openings, &RoleBench::opens, 1.3),
        RecordedWork(bench, "roles: screen with 20 contacts saved", "us/save", saves, &RoleBench::saves, 0.9),
        RecordedWork(bench, "roles: seven indicators", "us/painting", paintings, &RoleBench::paints, 0.5)};
}

} // namespace vorta::bench
