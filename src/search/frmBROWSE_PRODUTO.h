#pragma once

#include "base/Literals.h"
#include "launch/ContextoExecucao.h"
#include "screen/Screen.h"

#include <array>

namespace vorta {

/// Finds products of one company, with stock, prices and storage place. Opened by screens of other programs, which set
/// the labels of the company first; a double click hands the product over to them.
class frmBROWSE_PRODUTO : public screen::Screen {
  public:
    explicit frmBROWSE_PRODUTO(ContextoExecucao& contexto);

    void Load() override;

    /// The found products as an HTML table: picture, code and description of each row. Leaves the grid on its last row.
    QString MontaDetalheHTML();
    /// Removes the page "pesquisa_produtos.html" that an earlier search left in the folder of pages.
    void ApagaPaginaProdutos();

    screen::Label lblTitulo{this, "lblTitulo", u"Pesquisa de Produtos/Serviços"_s};
    screen::Label lblCodiEmpresa{this, "lblCodiEmpresa"};
    screen::Label lblNomeEmpresa{this, "lblNomeEmpresa"};
    screen::Label lblCodiAmbiente{this, "lblCodiAmbiente"};
    // The keyboard goes from the text over the search to its result; what empties it is the last.
    screen::TextField txtCOD{this, "txtCOD"};
    screen::Button cmdPesquisa{this, "cmdPesquisa", u"&Pesquisar"_s};
    screen::Grid Flex{this, "Flex"};
    screen::Option Option1{this, "Option1", u"ID"_s, "Forma de Busca"};
    screen::Option Option2{this, "Option2", u"Código"_s, "Forma de Busca"};
    screen::Option Option3{this, "Option3", u"Descrição"_s, "Forma de Busca"};
    screen::Option Option4{this, "Option4", u"Referência"_s, "Forma de Busca"};
    screen::Option opQQPosicao{this, "opQQPosicao", u"Pesquisa Qualquer posição"_s, "Conteúdo da Busca"};
    screen::Option opExata{this, "opExata", u"Pesquisa Exata"_s, "Conteúdo da Busca"};
    screen::Option opInicialCom{this, "opInicialCom", u"Pesquisa Inicia com..."_s, "Conteúdo da Busca"};
    screen::Check chkVisualiza{this, "chkVisualiza", u"Visualiza os Desativados"_s};
    screen::ListField cboTipoProd{this, "cboTipoProd"};
    screen::ListField cboCole{this, "cboCole"};
    screen::TextField txtMaxReg{this, "txtMaxReg"};
    screen::Picture Image1{this, "Image1"};
    screen::Button cmdImagem1_0{this, "cmdImagem1(0)", u"1"_s};
    screen::Button cmdImagem1_1{this, "cmdImagem1(1)", u"2"_s};
    screen::Button cmdImagem1_2{this, "cmdImagem1(2)", u"3"_s};
    screen::Button cmdImagem1_3{this, "cmdImagem1(3)", u"4"_s};
    screen::Button cmdLimpar{this, "cmdLimpar", u"&Limpar"_s};

  private:
    void MontaGridProdutos();
    void MontaConsulta();
    data::Statement Comparacao() const;
    QStringList LinhaProduto(const data::Recordset& produto);
    void AjustaTipoPelaChamadora();
    void RestauraUltimaBusca();
    void GuardaUltimaBusca();
    void MostraImagemLocal(const QString& sufixo);
    QString TextoColuna(int coluna);

    void cmdPesquisa_Click();
    void cmdLimpar_Click();
    void Flex_Click();
    void Flex_DblClick();
    void cmdImagem1_Click(screen::Button& botao);
    void Image1_DblClick();

    std::array<screen::Button*, 4> BotoesImagem();

    ContextoExecucao& contexto_;
};

} // namespace vorta
