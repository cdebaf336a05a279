// Types a person into the register: draft_typist HOME DATA-FOLDER WORD [N]
//   kill N     types N characters and dies
//   stay N     types N characters, tells what stands on the screen and waits for a line
//   look N     types N characters, tells what stands on the screen and gives the operation up
//   save N     the same, and dies in front of the N-th box from the click on the save
//   Sim, Não   starts with that answer to the question for a draft, tells what stands on the screen and gives it up

#include "app/Register.h"
#include "base/Literals.h"
#include "kit/Documents.h"
#include "person/frmPessoas.h"

#include <QCoreApplication>
#include <csignal>
#include <cstdio>

namespace {

using namespace vorta;

class Typist : public screen::Platform {
  public:
    explicit Typist(const QStringList& words) : words_(words), register_(*this) {}

    int live() {
        register_.start(u"1^1^PRD^False^"_s);
        return register_.program().failure() ? 1 : 0;
    }

    screen::Answer messageBox(const screen::Box& box) override {
        if (words_[2] == u"save" && box.text.startsWith(u"Registro Gravado"_s))
            ::raise(SIGKILL);
        if (box.text.startsWith(u"Uma inclusão foi interrompida"_s)) {
            std::puts("offered");
            return words_[2] == u"Sim" ? screen::Answer::Yes : screen::Answer::No;
        }
        return box.buttons == screen::Buttons::YesNoCancel ? screen::Answer::Cancel : screen::Answer::OK;
    }

    void runModal(screen::Screen& screen) override {
        if (words_[2] != u"Sim" && words_[2] != u"Não")
            type(words_.value(3).toInt());
        if (words_[2] == u"save")
            register_.user().click(person().cmdSALVAR);
        tell();
        if (words_[2] == u"kill")
            ::raise(SIGKILL);
        if (words_[2] == u"stay")
            std::getchar();
        if (person().EmEdicao())
            register_.user().closeByFrame(screen);
        if (!register_.program().hasEnded())
            register_.user().close(screen);
    }
    void openAddress(const QString&) override {}
    QString home() const override { return words_[0]; }
    QString dataFolder() const override { return words_[1]; }

  private:
    frmPessoas& person() { return static_cast<frmPessoas&>(register_.context().Tela(Register::startScreen())); }

    /// A field in front of each text; a button is clicked.
    void type(int characters) {
        const std::pair<const char*, QString> all[]{
            {"cmdINCLUIR", {}},
            {"cboFisJur", u"Física"_s},
            {"mskCodigo", QString::fromLatin1(kit::Cpf(9'000'001)).remove(u'.').remove(u'-')},
            {"txtDescricao", u"Maria d'Avila & Cia \"Um\""_s},
            {"txtNomeFantasia", u"Maria"_s},
            {"mskCEP", u"06010000"_s},
            {"txtEndereco", u"Rua da Perseverança"_s},
            {"txtBairro", u"Centro"_s},
            {"cboUF", u"SP"_s},
            {"cboCidade", u"Osasco"_s},
            {"txtEnt_Endereco", u"Rua da Entrega"_s},
            {"mskEnt_CEP", u"01310100"_s},
            {"txtFone1", u"11 4000-0001"_s},
            {"cboTipoContato", u"DIRETOR"_s},
            {"txtNomeContato", u"Ana"_s},
            {"mskDtNascCont", u"0508"_s},
            {"cmdIncluirContato", {}},
            {"cboTipoContato", u"GERENTE"_s},
            {"txtNomeContato", u"Bia"_s},
            {"cmdIncluirContato", {}},
            {"cboAtividades", u"Informática"_s},
            {"cmdIncluirAtividades", {}},
            {"txtOBSE_PESS_0001", u"a nota que ninguém quer digitar outra vez"_s},
            {"txtIEstadual", u"12.345.678-9"_s},
        };
        screen::User& user = register_.user();
        for (const auto& [name, text] : all) {
            screen::Field& field = person().field(QString::fromLatin1(name));
            if (text.isEmpty())
                user.click(field);
            else
                user.focus(field);
            for (const QChar character : text) {
                if (--characters < 0)
                    return;
                user.character(field, character);
            }
        }
    }

    void tell() {
        const frmPessoas& screen = person();
        std::printf("mode %s\n", qPrintable(register_.context().ModoTela.trimmed()));
        for (const screen::Field* field : screen.fields())
            if (field->name() != u"lblDataIncl" && !field->name().startsWith(u"cmd"_s))
                std::printf("%s %s\n", qPrintable(field->name()), qPrintable(field->text()));
        for (const screen::Grid* grid : {&screen.contatos.Flex, &screen.FlexAtividades})
            for (int row = 1; row < grid->Rows(); ++row)
                for (int col = 0; col < grid->Cols(); ++col)
                    std::printf("%s %d %d %s\n", qPrintable(grid->name()), row, col, qPrintable(grid->cell(row, col)));
        std::fflush(stdout);
    }

    QStringList words_;
    Register register_;
};

} // namespace

int main(int count, char** arguments) {
    QCoreApplication application(count, arguments);
    return Typist(QCoreApplication::arguments().sliced(1)).live();
}
