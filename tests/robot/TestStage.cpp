#include "robot/TestStage.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "robot/ModelHands.h"
#include "screen/Program.h"

namespace vorta::test {

using namespace screen;

namespace {

class frmDois : public Screen {
  public:
    explicit frmDois(ContextoExecucao& contexto) : Screen(contexto.program(), u"frmDois"_s) {
        cmdVolta.Click = [this] { Unload(); };
    }
    void Load() override { setCaption(u"Dois"_s); }

    TextField txtDois{this, "txtDois"};
    Button cmdVolta{this, "cmdVolta", u"&Volta"_s};
};

class frmUm : public Screen {
  public:
    explicit frmUm(ContextoExecucao& contexto) : Screen(contexto.program(), u"frmUm"_s), contexto_(contexto) {
        txtCurto.setMaxLength(3);
        txtTrancado.setLocked(true);
        txtTrancado.setText(u"fixo"_s);
        cmdParado.setEnabled(false);
        txtOculto.setVisible(false);
        cboLista.addItem(u"A"_s);
        cboLista.addItem(u"B"_s);
        cboLista.DropDown = [this] { cboLista.setToolTip(u"aberta"_s); };
        SSTab.place(u"Segunda"_s, {&txtAtras});
        Flex.reset({{u"Nome"_s}, {u"Fone"_s}});
        Flex.AddItem(u"MARIA\t123"_s);
        Flex.AddItem(u"JOSE\t456"_s);
        Flex.DblClick = [this] { txtNome.setText(Flex.cell(Flex.Row(), 0)); };
        txtNome.enterMovesOn = true;
        txtPreso.LostFocus = [this] { SetFocus(txtPreso); };
        LigaBotoes();
    }
    void Load() override {
        setCaption(u"Um ("_s + contexto_.LinhaComando + u')');
        lblTitulo.setForeground(colour::Red);
        lblTitulo.setBold(true);
    }
    void QueryUnload() override {
        if (pergunta_ && program().MsgBox({u"Sai?"_s, {}, Icon::None, Buttons::YesNo}) == Answer::Yes)
            txtNome.setText(u"saiu"_s);
    }

    Label lblTitulo{this, "lblTitulo", u"Titulo & Cia"_s};
    TextField txtNome{this, "txtNome"};
    TextField txtCurto{this, "txtCurto"};
    TextField txtTrancado{this, "txtTrancado"};
    TextField txtOculto{this, "txtOculto"};
    TextField txtPreso{this, "txtPreso"};
    MaskedField mskCep{this, "mskCep", u"#####-###"_s};
    ListField cboLista{this, "cboLista"};
    ListField lstAberta{this, "lstAberta", false};
    Option opSim{this, "opSim", u"Sim"_s, "g", true};
    Option opNao{this, "opNao", u"Não"_s, "g"};
    Check chkTudo{this, "chkTudo", u"Tudo"_s};
    TabStrip SSTab{this, "SSTab", {u"Primeira"_s, u"Segunda"_s}};
    TextField txtAtras{this, "txtAtras"};
    Grid Flex{this, "Flex"};
    Button cmdGrava{this, "cmdGrava", u"&Grava"_s};
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
            contexto_.ConexaoPrincipal->Open(data::Engine::Firebird, u"base"_s);
            data::Statement comando("INSERT INTO A VALUES ('");
            comando << txtNome.text() << "')";
            contexto_.ConexaoPrincipal->Execute(comando);
            contexto_.ConexaoPrincipal->Execute(data::Statement("UPDATE B SET C=1"));
            contexto_.ModoTela = u" "_s;
        };
        cmdPergunta.Click = [this] {
            const Answer answer = program().MsgBox({u"Continua?\r\nSim"_s, {}, Icon::None, Buttons::YesNoCancel});
            txtNome.setText(answer == Answer::Yes ? u"sim"_s : u"outra"_s);
        };
        cmdAvisa.Click = [this] {
            program().MsgBox({u"Feito!"_s, u"Aviso"_s, Icon::Information, Buttons::OK});
            program().MsgBox(u"Simples"_s);
        };
        cmdAbre.Click = [this] {
            contexto_.MostraTela(u"frmDois"_s);
            txtNome.setText(u"voltou"_s);
            program().MsgBox(u"Voltou"_s);
        };
        cmdErro.Click = [] { throw RuntimeError(errorNumber::InvalidNull); };
        cmdFim.Click = [this] { program().End(); };
        cmdCorreio.Click = [this] { program().platform().openAddress(u"mailto:a@b.c"_s); };
        cmdHora.Click = [this] { txtNome.setText(program().platform().now().toString(u"dd/MM/yyyy hh:mm"_s)); };
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
        context_.RegistraTela(u"frmUm"_s, [](ContextoExecucao& c) { return std::make_unique<frmUm>(c); });
        context_.RegistraTela(u"frmDois"_s, [](ContextoExecucao& c) { return std::make_unique<frmDois>(c); });
    }
    Program& program() override { return program_; }
    ContextoExecucao& context() override { return context_; }
    User& user() override { return user_; }
    void start(const QString& launchString) override {
        context_.LinhaComando = launchString;
        program_.dispatch([this] {
            context_.MostraTela(u"frmUm"_s);
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
        throw RuntimeError(errorNumber::StatementRefused, u"recusado"_s);
    executed += QString::number(static_cast<int>(base)) + u':' + statement;
}

QString TestStage::query(robot::Base base, const QString& statement) {
    queried += QString::number(static_cast<int>(base)) + u':' + statement;
    return rows;
}

std::string Play(TestStage& stage, const char* text) {
    const auto scenario = robot::Scenario::parse(u"x.roteiro"_s, QString::fromUtf8(text));
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
