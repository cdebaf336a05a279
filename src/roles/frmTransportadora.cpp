#include "roles/frmTransportadora.h"

namespace vorta {

namespace {

constexpr RegrasTelaPapel regrasTransportadora{.grupo = credenciado,
                                               .sufixo = " - Cadastro de Transportadora ",
                                               .rotuloId = "lblRowIdTransportadora",
                                               .primeiroCampo = "mskDtCredencial",
                                               .chaveNova = ChaveNova::PorGerador,
                                               .erroNoSalvar = ErroNoSalvar::PedeRollback};

} // namespace

frmTransportadora::frmTransportadora(ContextoExecucao& contexto)
    : TelaPapel(contexto, TipoPapel::Transportadora, regrasTransportadora) {
    Registro({&mskDtCredencial});
    Contatos(contatos);
    DataCredencial(mskDtCredencial);
}

data::Statement frmTransportadora::MontaInsert(std::optional<qint32> id) {
    Insercao insercao = IniciaInsert(id);
    if (const std::optional<QString> credencial = DataDoCampo(mskDtCredencial))
        insercao.inclui("data_cred", *credencial);
    return EncerraInsert(std::move(insercao));
}

data::Statement frmTransportadora::MontaUpdate(qint32 id) {
    data::Statement comando = IniciaUpdate();
    comando << "data_cred=" << OuNulo(DataDoCampo(mskDtCredencial)) << " ";
    return EncerraUpdate(comando, id);
}

void frmTransportadora::CarregaCampos(const data::Recordset& registro) {
    MostraData(mskDtCredencial, registro.Fields("data_cred"));
}

} // namespace vorta
