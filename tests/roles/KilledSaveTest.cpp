#include "base/Literals.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Ddl.h"
#include "roles/PapelTest.h"
#include "roles/RegistraTelasPapeis.h"

#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

/// A process that dies in the middle of a role's save leaves the base as it was before the save.
namespace vorta::test {

namespace {

/// Runs the embedded engine for one look or one save. The engine never lives in the process of the test itself, which
/// goes on forking.
int inProcess(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        try {
            work();
            ::_exit(0);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            ::_exit(1);
        }
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
}

/// An adapter that kills its process in front of the n-th statement of a transaction, the commit counting as one.
class KillingAdapter : public data::Adapter {
  public:
    KillingAdapter(std::unique_ptr<data::Adapter> engine, int at) : engine_(std::move(engine)), at_(at) {}

    void open(const QString& connectionString, int timeoutSeconds) override {
        engine_->open(connectionString, timeoutSeconds);
    }
    void close() override { engine_->close(); }
    bool isOpen() const override { return engine_->isOpen(); }
    void begin() override {
        engine_->begin();
        inside_ = true;
    }
    void commit() override {
        count();
        engine_->commit();
        inside_ = false;
    }
    void rollback() override { engine_->rollback(); }
    void execute(const data::Statement& statement) override {
        count();
        engine_->execute(statement);
    }
    void query(const data::Statement& statement, data::RowSink& rows) override {
        count();
        engine_->query(statement, rows);
    }

  private:
    void count() {
        if (inside_ && --at_ == 0)
            ::raise(SIGKILL);
    }

    std::unique_ptr<data::Adapter> engine_;
    int at_;
    bool inside_ = false;
};

/// Rows as text, for comparing a base with itself.
class RowsAsText : public data::RowSink {
  public:
    QByteArray text_;

    void columns(const QStringList& names) override { text_ += names.join(u',').toUtf8() + '\n'; }
    void beginRow() override {}
    void null() override { text_ += "<null>|"; }
    void integer(qint64 value) override { text_ += QByteArray::number(value) + '|'; }
    void decimal(data::Decimal value) override { text_ += QByteArray::number(value.unscaled) + '|'; }
    void text(std::string_view utf8) override { text_.append(utf8.data(), static_cast<qsizetype>(utf8.size())) += '|'; }
    void date(const QDateTime& value) override { text_ += value.toString(Qt::ISODate).toUtf8() + '|'; }
    void endRow() override { text_ += '\n'; }
};

struct Role {
    const char* tela;
    const char* rows;     ///< a role row 3 of person 5
    const char* contacts; ///< two contacts of it; empty for a role without contacts
    const char* look;     ///< what a save of the role may touch
    const char* lookContacts;
    const char* amount; ///< a field whose text the engine would refuse when empty
};

const std::vector<Role> roles{
    {"frmCliente", "insert into clie (idclie, idpess) values (3, 5)",
     "insert into clie_cont (idclie_cont, idclie, carg_clie_cont, nome_clie_cont) values (%1, 3, 'GERENTE', 'C%1')",
     "select * from clie order by 1", "select * from clie_cont order by 1", "txtLimiCred"},
    {"frmFornecedor", "insert into forn (idforn, idpess, limi_copr) values (3, 5, 10)",
     "insert into forn_cont (idforn_cont, idforn, carg_forn_cont, nome_forn_cont) values (%1, 3, 'GERENTE', 'C%1')",
     "select * from forn order by 1", "select * from forn_cont order by 1", "txtLimiCred"},
    {"frmTransportadora", "insert into trpt (idtrpt, idpess) values (3, 5)",
     "insert into trpt_cont (idtrpt_cont, idtrpt, carg_trpt_cont, nome_trpt_cont) values (%1, 3, 'GERENTE', 'C%1')",
     "select * from trpt order by 1", "select * from trpt_cont order by 1", ""},
    {"frmMotorista", "insert into moto (idmoto, idpess) values (3, 5)", "", "select * from moto order by 1", "", ""},
    {"frmVendedor", "insert into vend (idvend, idpess) values (3, 5)", "", "select * from vend order by 1", "",
     "txtSalFixo"},
    {"frmArquiteto", "insert into arqt (idarqt, idpess) values (3, 5)",
     "insert into arqt_cont (idarqt_cont, idarqt, carg_arqt_cont, nome_arqt_cont) values (%1, 3, 'GERENTE', 'C%1')",
     "select * from arqt order by 1", "select * from arqt_cont order by 1", "txtSalFixo"},
    {"frmDecorador", "insert into deco (iddeco, idpess) values (3, 5)",
     "insert into deco_cont (iddeco_cont, iddeco, carg_deco_cont, nome_deco_cont) values (%1, 3, 'GERENTE', 'C%1')",
     "select * from deco order by 1", "select * from deco_cont order by 1", "txtSalFixo"},
};

class KilledSave : public ::testing::TestWithParam<Role> {
  protected:
    static void SetUpTestSuite() {
        home_ = std::make_unique<QTemporaryDir>();
        ASSERT_EQ(inProcess([] {
                      firebird::PrepareEmbeddedEngine(home_->path());
                      firebird::CreateDatabase(path("new.fdb"));
                      const auto base = data::MakeFirebirdAdapter();
                      base->open(path("new.fdb"), 10);
                      for (const QString& statement : kit::TableStatements(data::Engine::Firebird, kit::Base::Main))
                          run(*base, statement);
                      run(*base, u"insert into pess (idpess, nome_pess) values (5, 'AURORA')"_s);
                      base->close();
                  }),
                  0);
    }
    static void TearDownTestSuite() { home_.reset(); }

    static QString path(const char* file) { return home_->filePath(QString::fromLatin1(file)); }
    static void run(data::Adapter& base, const QString& statement) {
        data::Statement comando;
        base.execute(comando += statement);
    }

    /// A fresh base for one save, with the role row and its contacts when there is one to alter.
    void prepares(bool altered) {
        QFile::remove(path("play.fdb"));
        ASSERT_TRUE(QFile::copy(path("new.fdb"), path("play.fdb")));
        if (!altered)
            return;
        ASSERT_EQ(inProcess([] {
                      firebird::PrepareEmbeddedEngine(home_->path());
                      const auto base = data::MakeFirebirdAdapter();
                      base->open(path("play.fdb"), 10);
                      run(*base, QString::fromLatin1(GetParam().rows));
                      for (int contact = 1; contact <= 2 && *GetParam().contacts; ++contact)
                          run(*base, QString::fromLatin1(GetParam().contacts).arg(contact));
                      base->close();
                  }),
                  0);
    }

    /// Everything that the save may touch, as text.
    QByteArray look() {
        EXPECT_EQ(inProcess([] {
                      firebird::PrepareEmbeddedEngine(home_->path());
                      const auto base = data::MakeFirebirdAdapter();
                      base->open(path("play.fdb"), 10);
                      RowsAsText rows;
                      for (const char* query : {GetParam().look, GetParam().lookContacts, "select * from pess"})
                          if (*query) {
                              data::Statement statement;
                              base->query(statement += QString::fromLatin1(query), rows);
                          }
                      QFile seen(path("seen"));
                      if (!seen.open(QIODevice::WriteOnly) || seen.write(rows.text_) != rows.text_.size())
                          throw std::runtime_error("cannot write what was seen");
                      seen.close();
                      base->close();
                  }),
                  0);
        QFile seen(path("seen"));
        EXPECT_TRUE(seen.open(QIODevice::ReadOnly));
        return seen.readAll();
    }

    /// Opens the role screen on the real base, changes something, saves, and dies in front of the n-th statement of the
    /// transaction.
    static void savesAndDies(bool altered, int at) {
        firebird::PrepareEmbeddedEngine(home_->path());
        World world([at](data::Engine) { return std::make_unique<KillingAdapter>(data::MakeFirebirdAdapter(), at); });
        world.platform.everyFileExists = true;
        ContextoExecucao& contexto = world.contexto;
        RegistraTelasPapeis(contexto);
        contexto.RegistraTela(u"frmPessoas"_s,
                              [](ContextoExecucao& owner) { return std::make_unique<PessoasDeTeste>(owner); });
        contexto.Tela(u"frmPessoas"_s).field(u"txtRowID"_s).setText(u"5"_s);
        contexto.CodigoUsuario = 7;
        contexto.IdPessoaVinculo = u"5"_s;
        world.connect(u"FIREBIRD"_s, path("play.fdb"));
        screen::User& user = world.user;
        world.platform.whenShown(QString::fromLatin1(GetParam().tela), [&](screen::Screen& tela) {
            const auto type = [&](const char* field, const char* text) {
                user.type(tela.field(QString::fromLatin1(field)), QString::fromUtf8(text));
            };
            user.click(tela.field(altered ? u"cmdALTERAR"_s : u"cmdINCLUIR"_s));
            if (*GetParam().amount)
                type(GetParam().amount, "12,5");
            else if (tela.findField(u"txtCNH"_s))
                type("txtCNH", "123");
            else
                type("mskDtCredencial", "01/02/2026");
            if (*GetParam().contacts) {
                type("cboTipoContato", "GERENTE");
                type("txtNomeContato", "NOVO");
                user.click(tela.field(u"cmdIncluirContato"_s));
            }
            user.click(tela.field(u"cmdSALVAR"_s));
        });
        world.run([&] { contexto.MostraTela(QString::fromLatin1(GetParam().tela)); });
        if (world.program.failure())
            throw *world.program.failure();
        if (world.platform.boxes.news() != QStringList(saved))
            throw std::runtime_error("the save has not told that it is done");
    }

    void diesEverywhere(bool altered) {
        prepares(altered);
        const QByteArray before = look();
        int killed = 0;
        for (int at = 1;; ++at) {
            ASSERT_LT(at, 50) << "the save never ends";
            const int status = inProcess([&] { savesAndDies(altered, at); });
            if (WIFEXITED(status)) {
                ASSERT_EQ(WEXITSTATUS(status), 0);
                break;
            }
            ASSERT_EQ(WTERMSIG(status), SIGKILL);
            ++killed;
            EXPECT_EQ(look(), before) << "killed in front of statement " << at;
        }
        EXPECT_GE(killed, 2) << "a statement and the commit at least";
        EXPECT_NE(look(), before) << "a save that lives writes";
    }

  private:
    static inline std::unique_ptr<QTemporaryDir> home_;
};

TEST_P(KilledSave, LeavesTheBaseWholeInAnInclusion) {
    diesEverywhere(false);
}

TEST_P(KilledSave, LeavesTheBaseWholeInAnAlteration) {
    diesEverywhere(true);
}

INSTANTIATE_TEST_SUITE_P(Roles, KilledSave, ::testing::ValuesIn(roles),
                         [](const auto& role) { return std::string(role.param.tela); });

} // namespace

} // namespace vorta::test
