#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "person/CamposPessoa.h"
#include "person/ContatosPessoa.h"
#include "person/HistoricoPessoa.h"
#include "person/frmPessoas.h"
#include "shared/Consultas.h"
#include "shared/TextoEntrada.h"
#include "shared/Vinculos.h"

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;
using data::Value;

constexpr int tamanhoCep = 9;

/// What becomes of a stored postal code. Rows of older releases hold short or dirty values, and the three blocks treat
/// them differently.
struct RegraCep {
    bool vazioLimpa;   ///< an empty value blanks the field
    bool completaZero; ///< a short value has lost its leading zero
    bool corrigeBarra; ///< a slash stands for the dash
};
constexpr RegraCep cepComercial{.vazioLimpa = true, .completaZero = false, .corrigeBarra = true};
constexpr RegraCep cepEntrega{.vazioLimpa = true, .completaZero = true, .corrigeBarra = false};
constexpr RegraCep cepCobranca{.vazioLimpa = false, .completaZero = true, .corrigeBarra = false};

void CarregaCepCurto(const RegraCep& regra, const QString& valor, screen::MaskedField& campo) {
    if (valor == u"SP" || (valor.isEmpty() && regra.vazioLimpa))
        LimpaMascara(campo);
    else if (!valor.isEmpty() && regra.completaZero)
        campo.setText(u'0' + valor);
}

void CarregaCep(const RegraCep& regra, Recordset& registro, const QString& coluna, screen::MaskedField& campo) {
    const Value guardado = registro.Fields(coluna);
    if (guardado.isNull()) {
        LimpaMascara(campo);
        return;
    }
    QString valor = guardado.text();
    if (valor.size() < tamanhoCep) {
        CarregaCepCurto(regra, valor, campo);
        return;
    }
    if (valor == u"     -   ")
        return;
    if (regra.corrigeBarra) {
        valor.replace(u'/', u'-');
        registro.Overwrite(coluna, Value(valor));
        valor = Trim(valor);
    }
    campo.setText(valor);
}

/// A stored document is shown as it is, whatever its form.
void CarregaDocumento(const Value& documento, screen::MaskedField& campo) {
    if (documento.isNull()) {
        LimpaMascara(campo);
        return;
    }
    campo.setMask({});
    campo.setText(documento.text());
}

/// The description behind a key of the person's row; empty for a null key.
template <typename Consulta>
QString Descricao(ContextoExecucao& contexto, const Value& chave, Consulta consulta) {
    return chave.isNull() ? QString() : consulta(contexto, chave.text());
}

} // namespace

void frmPessoas::cmdPesquisar_Cliente_Click() {
    if (!txtRowID.text().isEmpty())
        PesquisaPorId();
    else if (!txtCodPessExterno.text().isEmpty())
        PesquisaPorCodigoExterno();
    else
        contexto_.MostraTela(u"frmBROWSE_PESSOAS"_s);
}

void frmPessoas::PesquisaPorId() {
    Statement comando("SELECT * FROM PESS WHERE idPESS=");
    comando << txtRowID.text();
    const Recordset achada = AbreLeitura(contexto_, comando);
    if (achada.Eof()) {
        AvisaNaoLocalizada();
        return;
    }
    // The text may be another form of the number, which is one here and none between apostrophes.
    txtCodPessExterno.setText(CodigoExternoPessoa(contexto_, achada.Fields("IDPESS").text()));
    CarregaPessoa();
    AtualizaIndicadoresVinculo(contexto_, *this);
    CarregaHistoricoPorId(*this);
    PreencheCodigosMunicipio();
}

void frmPessoas::PesquisaPorCodigoExterno() {
    Statement comando("SELECT * FROM PESS WHERE PESS_CODI_EXTE = '");
    comando << txtCodPessExterno.text() << "'";
    if (AbreLeitura(contexto_, comando).Eof()) {
        AvisaNaoLocalizada();
        return;
    }
    txtRowID.setText(QString::number(IdPessoaPorCodigoExterno(contexto_, txtCodPessExterno.text())));
    CarregaPessoa();
    AtualizaIndicadoresVinculo(contexto_, *this);
    CarregaHistoricoPorCodigoExterno(*this);
    PreencheCodigosMunicipio();
}

void frmPessoas::AvisaNaoLocalizada() {
    program().MsgBox({u"Pessoa não localizada!"_s, caption(), screen::Icon::Information, screen::Buttons::OK});
    SetFocus(txtRowID);
}

/// The billing code is looked up while the commercial one is empty, whatever it holds itself.
void frmPessoas::PreencheCodigosMunicipio() {
    struct Bloco {
        screen::Label& testado;
        screen::Label& codigo;
        screen::ListField& cidade;
        screen::ListField& uf;
    };
    for (const Bloco& bloco : {Bloco{lblCodMunIBGE, lblCodMunIBGE, cboCidade, cboUF},
                               Bloco{lblEnt_CodMunIBGE, lblEnt_CodMunIBGE, cboEnt_Cidade, cboEnt_UF},
                               Bloco{lblCodMunIBGE, lblCob_CodMunIBGE, cboCob_Cidade, cboCob_UF}}) {
        if (!Trim(bloco.testado.text()).isEmpty())
            continue;
        QString cidade = bloco.cidade.text();
        bloco.codigo.setText(CodigoMunicipio(contexto_, cidade, bloco.uf.text()));
    }
}

void frmPessoas::CarregaPessoa() {
    contexto_.SqlConsulta = Statement("SELECT * FROM PESS WHERE idPESS = ");
    contexto_.SqlConsulta << txtRowID.text();
    contexto_.RecordsetComum = AbreLeitura(contexto_, contexto_.SqlConsulta);
    if (contexto_.RecordsetComum.Eof())
        return;
    LimpaTela();
    LePessoa(contexto_.RecordsetComum);
    contexto_.RecordsetComum.Close();
    CarregaAtividades(*this);
    contatos.Carrega(txtRowID.text());
}

void frmPessoas::LePessoa(Recordset& registro) {
    for (const CampoPessoa* linha : OrdemCarga())
        CarregaCampo(*linha, field(QString::fromLatin1(linha->nome)), registro);
}

void frmPessoas::CarregaCampo(const CampoPessoa& linha, screen::Field& campo, Recordset& registro) {
    const QString coluna = linha.coluna->toString();
    const Value valor = registro.Fields(coluna);
    const auto carregaCep = [&](const RegraCep& regra) {
        CarregaCep(regra, registro, coluna, dynamic_cast<screen::MaskedField&>(campo));
    };
    switch (linha.forma) {
    case Forma::Texto:
    case Forma::Aparado:
    case Forma::CodigoMunicipio:
        return campo.setText(valor.textOr({}));
    case Forma::TextoExigido:
        return campo.setText(valor.text());
    case Forma::FisicaOuJuridica:
        return CarregaTipoPessoa(valor.textOr({}) == u"F");
    case Forma::Documento:
        return CarregaDocumento(valor, mskCodigo);
    case Forma::DiaMes:
        return campo.setText(valor.textOr({}).isEmpty() ? u"__/__"_s : valor.text());
    case Forma::Data:
        if (!valor.isNull())
            campo.setText(valor.text());
        return;
    case Forma::CepComercial:
        return carregaCep(cepComercial);
    case Forma::CepEntrega:
        return carregaCep(cepEntrega);
    case Forma::CepCobranca:
        return carregaCep(cepCobranca);
    case Forma::Vendedor:
        return campo.setText(Descricao(contexto_, valor, ConhecidoVendedor));
    case Forma::TipoCliente:
        return campo.setText(Descricao(contexto_, valor, DescricaoTipoCliente));
    case Forma::Transportadora:
        return campo.setText(Descricao(contexto_, valor, ConhecidoTransportadora));
    }
}

void frmPessoas::CarregaTipoPessoa(bool fisica) {
    cboFisJur.setText(fisica ? u"Física"_s : u"Jurídica"_s);
    lblCGCCPF.setText(fisica ? u"CPF:"_s : u"CGC:"_s);
    lblIE_RG.setText(fisica ? u"RG:"_s : u"I.ESTADUAL:"_s);
}

} // namespace vorta
