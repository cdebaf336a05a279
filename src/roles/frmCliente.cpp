#include "roles/frmCliente.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "shared/Capacidade.h"
#include "shared/Consultas.h"
#include "shared/Preenchimento.h"
#include "shared/TextoEntrada.h"
#include "shared/ValidaCampos.h"

namespace vorta {

namespace {

constexpr RegrasTelaPapel regrasCliente{.grupo = credenciado,
                                        .sufixo = " - Cadastro de Clientes ",
                                        .rotuloId = "lblRowIdCliente",
                                        .primeiroCampo = "cboRevenda",
                                        .chaveNova = ChaveNova::PorGerador,
                                        .erroNoSalvar = ErroNoSalvar::Encerra};

const QString sim = u"Sim"_s;
const QString nao = u"Não"_s;

/// A key of another table in its description; null stands for none.
void MostraDescricao(ContextoExecucao& contexto, screen::Field& campo, const data::Value& chave,
                     QString (*descreve)(ContextoExecucao&, const QString&)) {
    campo.setText(chave.isNull() ? QString() : descreve(contexto, chave.text()));
}

/// The same for keys of which 0 stands for none too.
void MostraDescricaoSemZero(ContextoExecucao& contexto, screen::Field& campo, const data::Value& chave,
                            QString (*descreve)(ContextoExecucao&, const QString&)) {
    const bool zero = !chave.isNull() && chave.toInt32() == 0;
    MostraDescricao(contexto, campo, zero ? data::Value() : chave, descreve);
}

} // namespace

frmCliente::frmCliente(ContextoExecucao& contexto) : TelaPapel(contexto, TipoPapel::Cliente, regrasCliente) {
    for (screen::Field* campo : std::initializer_list<screen::Field*>{
             &cboRevenda, &txtLimiCred, &cboTipoCli, &cboTransportadora, &mskDtCredencial, &cboVendedor,
             &txtLimeMaxiConh, &cboRegimeEspecialICMS})
        campo->enterMovesOn = true;
    Contatos(contatos);
    CampoValor(txtLimiCred);
    DataCredencial(mskDtCredencial);
    txtLimeMaxiConh.selectsOnFocus = true;
    txtLimeMaxiConh.capacity = capacidade::valor;
    cboRevenda.addItem(sim);
    cboRevenda.addItem(nao);
    cboRevenda.completes = true;
    cboTipoCli.DropDown = [this] { PreencheTipoCliente(TelaPapel::contexto(), *this); };
    cboTransportadora.DropDown = [this] {
        PreencheTransportadoras(TelaPapel::contexto(), cboTransportadora.text(), cboTransportadora);
    };
    cboVendedor.DropDown = [this] { PreencheVendedores(TelaPapel::contexto(), cboVendedor.text(), cboVendedor); };
    cboRegimeEspecialICMS.DropDown = [this] { PreencheRegimeEspecial(TelaPapel::contexto(), cboRegimeEspecialICMS); };
}

void frmCliente::BloqueiaCampos() {
    BloqueiaCampo(txtRowID);
}

/// The credit limit is stated at every save, so an alteration begins with the one that is stored now: the load does not
/// show it, and another user may have changed it since. An empty field stands for null.
void frmCliente::LiberaCampos() {
    if (modo() == Modo::Alteracao)
        MostraLimite();
    else
        ZeraVazios({&txtLimiCred});
}

void frmCliente::MostraLimite() {
    if (Val(lblRowId.text()) == 0)
        return;
    data::Statement& consulta = contexto().SqlConsulta;
    consulta.clear();
    consulta << "SELECT * FROM clie WHERE idclie = " << lblRowId.text();
    const data::Recordset registro = AbreLeitura(contexto(), consulta);
    if (!registro.Eof())
        MostraValor(txtLimiCred, registro.Fields("limi_cred"), {});
}

/// No engine takes an empty text for an amount, and an inclusion states one; nor a comma in a number, and the limit of
/// bills of lading is stated as it stands on the screen.
void frmCliente::CompletaCampos() {
    QString conhecimentos = txtLimeMaxiConh.text();
    txtLimeMaxiConh.setText(VirgulaParaPonto(conhecimentos));
    if (modo() == Modo::Inclusao)
        ZeraVazios({&txtLimiCred});
}

std::optional<QString> frmCliente::Limite() const {
    return Trim(txtLimiCred.text()).isEmpty() ? std::nullopt : std::optional(ValorDoCampo(txtLimiCred));
}

QString frmCliente::Revenda() const {
    return cboRevenda.text() == sim ? u"S"_s : u"N"_s;
}

QString frmCliente::LimiteConhecimentos() const {
    const QString limite = Trim(txtLimeMaxiConh.text());
    return limite.isEmpty() ? u"0"_s : limite;
}

std::optional<QString> frmCliente::ChaveDe(const screen::ListField& lista,
                                           qint32 (*procura)(ContextoExecucao&, const QString&)) const {
    if (lista.text().isEmpty())
        return std::nullopt;
    return QString::number(procura(contexto(), lista.text()));
}

std::optional<QString> frmCliente::ChaveRegime() const {
    if (cboRegimeEspecialICMS.text().isEmpty())
        return std::nullopt;
    return IdRegimeEspecial(contexto(), cboRegimeEspecialICMS.text());
}

data::Statement frmCliente::MontaInsert(std::optional<qint32> id) {
    Insercao insercao = IniciaInsert(id);
    const auto seHouver = [&](data::Piece coluna, const std::optional<QString>& valor) {
        if (valor)
            insercao.inclui(coluna, *valor);
    };
    insercao.inclui("reve", Revenda());
    insercao.inclui("limi_cred", ValorDoCampo(txtLimiCred));
    insercao.inclui("idTipo_Clie", ChaveDe(cboTipoCli, IdTipoCliente).value_or(u"0"_s));
    seHouver("idtrpt", ChaveDe(cboTransportadora, IdTransportadora));
    seHouver("data_cred", DataDoCampo(mskDtCredencial));
    seHouver("idvend", ChaveDe(cboVendedor, IdVendedor));
    insercao.inclui("lime_maxi_conh", LimiteConhecimentos());
    seHouver("idregi_espe_icms", ChaveRegime());
    return EncerraInsert(std::move(insercao));
}

data::Statement frmCliente::MontaUpdate(qint32 id) {
    data::Statement comando = IniciaUpdate();
    comando << "reve='" << Revenda() << "', ";
    // A customer without a type has type 0, while the other keys are null when there is none.
    if (const std::optional<QString> tipo = ChaveDe(cboTipoCli, IdTipoCliente))
        comando << "idTipo_Clie='" << *tipo << "', ";
    else
        comando << "idTipo_Clie=0, ";
    comando << "idtrpt=" << OuNulo(ChaveDe(cboTransportadora, IdTransportadora)) << ", "
            << "idvend=" << OuNulo(ChaveDe(cboVendedor, IdVendedor)) << ", "
            << "lime_maxi_conh = '" << LimiteConhecimentos() << "', "
            << "idregi_espe_icms=" << OuNulo(ChaveRegime()) << ", "
            << "data_cred=" << OuNulo(DataDoCampo(mskDtCredencial)) << ", "
            << "limi_cred=" << OuNulo(Limite()) << " ";
    return EncerraUpdate(comando, id);
}

/// The credit limit is not among what a load shows.
void frmCliente::CarregaCampos(const data::Recordset& registro) {
    MostraDescricao(contexto(), cboTransportadora, registro.Fields("idTRPT"), ConhecidoTransportadora);
    MostraData(mskDtCredencial, registro.Fields("data_cred"));
    cboRevenda.setText(registro.Fields("reve").textOr({}) == u"S" ? sim : nao);
    MostraDescricao(contexto(), cboTipoCli, registro.Fields("idtipo_clie"), DescricaoTipoCliente);
    MostraDescricaoSemZero(contexto(), cboVendedor, registro.Fields("idvend"), ConhecidoVendedor);
    MostraDescricaoSemZero(contexto(), cboRegimeEspecialICMS, registro.Fields("idregi_espe_icms"),
                           DescricaoRegimeEspecial);
    Mostra(txtLimeMaxiConh, registro.Fields("lime_maxi_conh"), u"0"_s);
    MostraValor(lblValoTroc, registro.Fields("valo_troc"), u"0"_s);
}

} // namespace vorta
