#include "robot/TestStage.h"

#include "base/RuntimeError.h"
#include "robot/ModelHands.h"
#include "screen/Program.h"

namespace vorta::test {

using namespace screen;

namespace {

class frmDois : public Screen {
  public:
    explicit frmDois(ContextoExecucao& contexto) : Screen(contexto.program(), QStringLiteral("frmDois")) {
        cmdVolta.Click = [this] { Unload(); };
    }
    void Load() override { setCaption(QStringLiteral("Dois")); }

    TextField txtDois{this, "txtDois"};
    Button cmdVolta{this, "cmdVolta", QStringLiteral("&Volta")};
};

class frmUm : public Screen {
  public:
    explicit frmUm(ContextoExecucao& contexto)
        : Screen(contexto.program(), QStringLiteral("frmUm")), contexto_(contexto) {
        txtCurto.setMaxLength(3);
        txtTrancado.setLocked(true);
        txtTrancado.setText(QStringLiteral("fixo"));
        cmdParado.setEnabled(false);
        txtOculto.setVisible(false);
        cboLista.addItem(QStringLiteral("A"));
        cboLista.addItem(QStringLiteral("B"));
        cboLista.DropDown = [this] { cboLista.setToolTip(QStringLiteral("aberta")); };
        SSTab.place(QStringLiteral("Segunda"), {&txtAtras});
        Flex.reset({{QStringLiteral("Nome")}, {QStringLiteral("Fone")}});
        Flex.AddItem(QStringLiteral("MARIA\t123"));
        Flex.AddItem(QStringLiteral("JOSE\t456"));
        Flex.DblClick = [this] { txtNome.setText(Flex.cell(Flex.Row(), 0)); };
        txtNome.enterMovesOn = true;
        txtPreso.LostFocus = [this] { SetFocus(txtPreso); };
        LigaBotoes();
    }
    void Load() override {
        setCaption(QStringLiteral("Um (") + contexto_.LinhaComando + u')');
        lblTitulo.setForeground(colour::Red);
        lblTitulo.setBold(true);
    }
    void QueryUnload() override {
        if (pergunta_ && program().MsgBox({QStringLiteral("Sai?"), {}, Icon::None, Buttons::YesNo}) == Answer::Yes)
            txtNome.setText(QStringLiteral("saiu"));
    }

    Label lblTitulo{this, "lblTitulo", QStringLiteral("Titulo & Cia")};
    TextField txtNome{this, "txtNome"};
    TextField txtCurto{this, "txtCurto"};
    TextField txtTrancado{this, "txtTrancado"};
    TextField txtOculto{this, "txtOculto"};
    TextField txtPreso{this, "txtPreso"};
    MaskedField mskCep{this, "mskCep", QStringLiteral("#####-###")};
    ListField cboLista{this, "cboLista"};
    ListField lstAberta{this, "lstAberta", false};
    Option opSim{this, "opSim", QStringLiteral("Sim"), "g", true};
    Option opNao{this, "opNao", QStringLiteral("Não"), "g"};
    Check chkTudo{this, "chkTudo", QStringLiteral("Tudo")};
    TabStrip SSTab{this, "SSTab", {QStringLiteral("Primeira"), QStringLiteral("Segunda")}};
    TextField txtAtras{this, "txtAtras"};
    Grid Flex{this, "Flex"};
    Button cmdGrava{this, "cmdGrava", QStringLiteral("&Grava")};
    Button cmdPergunta{this, "cmdPergunta"};
    Button cmdAvisa{this, "cmdAvisa"};
    Button cmdAbre{this, "cmdAbre"};
    Button cmdErro{this, "cmdErro"};
    Button cmdFim{this, "cmdFim"};
    Button cmdCorreio{this, "cmdCorreio"};
    Button cmdHora{this, "cmdHora"};
    Button cmdParado{this, "cmdParado"};
    Button cmdImagem0{this, "cmdImagem1(0)"};
    Button cmdSAIR{this, "cmdSAIR"};

  private:
    void LigaBotoes() {
        cmdGrava.Click = [this] {
            contexto_.ConexaoPrincipal = contexto_.novaConexao();
            contexto_.ConexaoPrincipal->Open(data::Engine::Firebird, QStringLiteral("base"));
            data::Statement comando("INSERT INTO A VALUES ('");
            comando << txtNome.text() << "')";
            contexto_.ConexaoPrincipal->Execute(comando);
            contexto_.ConexaoPrincipal->Execute(data::Statement("UPDATE B SET C=1"));
            contexto_.ModoTela = QStringLiteral(" ");
        };
        cmdPergunta.Click = [this] {
            const Answer answer =
                program().MsgBox({QStringLiteral("Continua?\r\nSim"), {}, Icon::None, Buttons::YesNoCancel});
            txtNome.setText(answer == Answer::Yes ? QStringLiteral("sim") : QStringLiteral("outra"));
        };
        cmdAvisa.Click = [this] {
            program().MsgBox({QStringLiteral("Feito!"), QStringLiteral("Aviso"), Icon::Information, Buttons::OK});
            program().MsgBox(QStringLiteral("Simples"));
        };
        cmdAbre.Click = [this] {
            contexto_.MostraTela(QStringLiteral("frmDois"));
            txtNome.setText(QStringLiteral("voltou"));
            program().MsgBox(QStringLiteral("Voltou"));
        };
        cmdErro.Click = [] { throw RuntimeError(errorNumber::InvalidNull); };
        cmdFim.Click = [this] { program().End(); };
        cmdCorreio.Click = [this] { program().platform().openAddress(QStringLiteral("mailto:a@b.c")); };
        cmdHora.Click = [this] {
            txtNome.setText(program().platform().now().toString(QStringLiteral("dd/MM/yyyy hh:mm")));
        };
        cmdImagem0.Click = [this] { pergunta_ = true; };
        cmdSAIR.Click = [this] { Unload(); };
    }

    ContextoExecucao& contexto_;
    bool pergunta_ = false;
};

class TestCast : public robot::Cast {
  public:
    TestCast(Platform& platform, FakeDatabase& database, data::StatementTrace trace)
        : program_(platform), context_(program_, database.factory(), std::move(trace)), user_(program_) {
        context_.RegistraTela(QStringLiteral("frmUm"), [](ContextoExecucao& c) { return std::make_unique<frmUm>(c); });
        context_.RegistraTela(QStringLiteral("frmDois"),
                              [](ContextoExecucao& c) { return std::make_unique<frmDois>(c); });
    }
    Program& program() override { return program_; }
    ContextoExecucao& context() override { return context_; }
    User& user() override { return user_; }
    void start(const QString& launchString) override {
        context_.LinhaComando = launchString;
        program_.dispatch([this] {
            context_.MostraTela(QStringLiteral("frmUm"));
            program_.End();
        });
    }

  private:
    Program program_;
    ContextoExecucao context_;
    User user_;
};

} // namespace

std::unique_ptr<robot::Cast> TestStage::cast(Platform& platform, data::StatementTrace trace) {
    ++casts;
    return std::make_unique<TestCast>(platform, database, std::move(trace));
}

void TestStage::execute(robot::Base base, const QString& statement) {
    if (statement.isEmpty())
        throw RuntimeError(errorNumber::StatementRefused, QStringLiteral("recusado"));
    executed += QString::number(static_cast<int>(base)) + u':' + statement;
}

QString TestStage::query(robot::Base base, const QString& statement) {
    queried += QString::number(static_cast<int>(base)) + u':' + statement;
    return rows;
}

std::string Play(TestStage& stage, const char* text) {
    const auto scenario = robot::Scenario::parse(QStringLiteral("x.roteiro"), QString::fromUtf8(text));
    robot::Player player(scenario, stage,
                         [](Program&, User& user) { return std::make_unique<robot::ModelHands>(user); });
    const auto verdict = player.play();
    return verdict ? std::to_string(verdict->line) + ": " + verdict->message.toStdString() : std::string();
}

std::string Play(const char* text) {
    TestStage stage;
    return Play(stage, text);
}

} // namespace vorta::test
