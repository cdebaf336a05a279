#pragma once

#include "base/Literals.h"
#include "search/RegistraTelasBusca.h"
#include "search/frmBROWSE_CEPS.h"
#include "search/frmBROWSE_PESSOAS.h"
#include "search/frmPESSOAS_INCL.h"
#include "support/World.h"

namespace vorta::test {

/// A screen that calls the searches: the fields of the person screen that they write.
class TelaQueChama : public screen::Screen {
  public:
    TelaQueChama(ContextoExecucao& contexto, const QString& nome) : Screen(contexto.program(), nome) {}
    screen::TextField txtRowID{this, "txtRowID"};
    screen::TextField txtDescricao{this, "txtDescricao"};
    screen::TextField txtNomeFantasia{this, "txtNomeFantasia"};
    screen::ListField cboFisJur{this, "cboFisJur"};
    screen::MaskedField mskCodigo{this, "mskCodigo"};
    screen::TextField txtEndereco{this, "txtEndereco"};
    screen::TextField txtBairro{this, "txtBairro"};
    screen::ListField cboCidade{this, "cboCidade"};
    screen::ListField cboUF{this, "cboUF"};
    screen::MaskedField mskCEP{this, "mskCEP", u"#####-###"_s};
    screen::ListField cboPais_Coml{this, "cboPais_Coml"};
    screen::TextField txtCob_Endereco{this, "txtCob_Endereco"};
    screen::TextField txtCob_Bairro{this, "txtCob_Bairro"};
    screen::ListField cboCob_Cidade{this, "cboCob_Cidade"};
    screen::ListField cboCob_UF{this, "cboCob_UF"};
    screen::MaskedField mskCob_CEP{this, "mskCob_CEP", u"#####-###"_s};
    screen::ListField cboPais_Cobr{this, "cboPais_Cobr"};
    screen::TextField txtEnt_Endereco{this, "txtEnt_Endereco"};
    screen::TextField txtEnt_Bairro{this, "txtEnt_Bairro"};
    screen::ListField cboEnt_Cidade{this, "cboEnt_Cidade"};
    screen::ListField cboEnt_UF{this, "cboEnt_UF"};
    screen::MaskedField mskEnt_CEP{this, "mskEnt_CEP", u"#####-###"_s};
    screen::ListField cboPais_Entg{this, "cboPais_Entg"};
};

/// What a search says that has found nothing.
inline const QString nothingFound = u"Nenhum Registro Localizado com esses parâmetros..."_s;

/// The cells of a row, from the left.
inline QStringList rowOf(const screen::Grid& grid, int linha) {
    QStringList celulas;
    for (int coluna = 0; coluna < grid.Cols(); ++coluna)
        celulas += grid.cell(linha, coluna);
    return celulas;
}

/// A register with the search screens, a calling screen `frmPessoas` and a database that answers what it is told.
class BuscaTest : public testing::Test, protected World {
  protected:
    BuscaTest() {
        RegistraTelasBusca(contexto);
        registerCaller("frmPessoas");
        contexto.TelaChamadora = u"frmPessoas"_s;
        connect();
    }

    void registerCaller(const char* nome) {
        const QString chave = QString::fromLatin1(nome);
        contexto.RegistraTela(chave,
                              [chave](ContextoExecucao& dono) { return std::make_unique<TelaQueChama>(dono, chave); });
    }

    TelaQueChama& pessoas() { return static_cast<TelaQueChama&>(contexto.Tela(u"frmPessoas"_s)); }

    /// Shows a screen and does something while it is open. Gives false when the program has ended.
    template <typename Tela>
    bool open(const char* nome, const std::function<void(Tela&)>& faz) {
        const QString chave = QString::fromLatin1(nome);
        platform.whenShown(chave, [faz](screen::Screen& tela) { faz(static_cast<Tela&>(tela)); });
        return run([&] { contexto.MostraTela(chave); });
    }
};

} // namespace vorta::test
