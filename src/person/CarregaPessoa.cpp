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
    const char* coluna;
    const char* campo;
    bool vazioLimpa;   ///< an empty value blanks the field
    bool completaZero; ///< a short value has lost its leading zero
    bool corrigeBarra; ///< a slash stands for the dash
};
constexpr RegraCep regrasCep[]{
    {"CEP0_COML_PESS", "mskCEP", true, false, true},
    {"CEP0_ENTG_PESS", "mskEnt_CEP", true, true, false},
    {"CEP0_COBR_PESS", "mskCob_CEP", false, true, false},
};

void CarregaCepCurto(const RegraCep& regra, const QString& valor, screen::MaskedField& campo) {
    if (valor == u"SP" || (valor.isEmpty() && regra.vazioLimpa))
        LimpaMascara(campo);
    else if (!valor.isEmpty() && regra.completaZero)
        campo.setText(u'0' + valor);
}

void CarregaCep(const RegraCep& regra, Recordset& registro, screen::MaskedField& campo) {
    const Value guardado = registro.Fields(regra.coluna);
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
        registro.Overwrite(QString::fromLatin1(regra.coluna), Value(valor));
        valor = Trim(valor);
    }
    campo.setText(valor);
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
    if (AbreLeitura(contexto_, comando).Eof()) {
        AvisaNaoLocalizada();
        return;
    }
    txtCodPessExterno.setText(CodigoExternoPessoa(contexto_, txtRowID.text()));
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
    CarregaContatos(*this);
}

void frmPessoas::LePessoa(Recordset& registro) {
    txtRowID.setText(registro.Fields("IDPESS").text());
    txtDescricao.setText(registro.Fields("NOME_PESS").text());
    txtDTDesativa.setText(registro.Fields("data_desa").textOr({}));
    lblDataDesa.setText(registro.Fields("data_desa").textOr({}));
    lblDataIncl.setText(registro.Fields("DATA_INCL").textOr({}));
    for (const ColunaCarga& linha : ColunasCarga())
        field(QString::fromLatin1(linha.campo)).setText(registro.Fields(linha.coluna).textOr({}));

    const QString aniversario = registro.Fields("Data_Aniv").textOr({});
    mskDtNasc.setText(aniversario.isEmpty() ? u"__/__"_s : aniversario);
    if (const Value data = registro.Fields("data_aniv_rela"); !data.isNull())
        mskDtAnivRel.setText(data.text());

    const Value documento = registro.Fields("cpf0_cnpj");
    if (documento.isNull()) {
        LimpaMascara(mskCodigo);
    } else {
        mskCodigo.setMask({});
        mskCodigo.setText(documento.text());
    }
    for (const RegraCep& regra : regrasCep)
        CarregaCep(regra, registro, static_cast<screen::MaskedField&>(field(QString::fromLatin1(regra.campo))));

    cboVendedor.setText(Descricao(contexto_, registro.Fields("idvend"), ConhecidoVendedor));
    const bool fisica = registro.Fields("psFI_psJU").textOr({}) == u"F";
    cboFisJur.setText(fisica ? u"Física"_s : u"Jurídica"_s);
    lblCGCCPF.setText(fisica ? u"CPF:"_s : u"CGC:"_s);
    lblIE_RG.setText(fisica ? u"RG:"_s : u"I.ESTADUAL:"_s);
    cboTipoCli.setText(Descricao(contexto_, registro.Fields("idtipo_clie"), DescricaoTipoCliente));
    cboTransportadora.setText(Descricao(contexto_, registro.Fields("IDPESS_TRPT"), ConhecidoTransportadora));
}

} // namespace vorta
