#include "roles/frmVendedor.h"

namespace vorta {

namespace {

constexpr RegrasTelaPapel regrasVendedor{.grupo = empregado,
                                         .sufixo = " - Cadastro de Vendedores ",
                                         .rotuloId = "lblRowIdVendedor",
                                         .primeiroCampo = "mskDtAdmissao",
                                         .chaveNova = ChaveNova::Dispensada,
                                         .erroNoSalvar = ErroNoSalvar::PedeRollback};

} // namespace

frmVendedor::frmVendedor(ContextoExecucao& contexto) : TelaPapel(contexto, TipoPapel::Vendedor, regrasVendedor) {
    Registro({&mskDtAdmissao}, {&txtSalFixo, &txtPercPool, &txtPercIndi});
    mskDtAdmissao.selectsOnFocus = true;
    for (screen::Field* valor : {&txtSalFixo, &txtPercPool, &txtPercIndi})
        CampoValor(*valor);
}

void frmVendedor::CompletaCampos() {
    ZeraVazios({&txtSalFixo, &txtPercPool, &txtPercIndi});
}

data::Statement frmVendedor::MontaInsert(std::optional<qint32> id) {
    Insercao insercao = IniciaInsert(id);
    if (const std::optional<QString> admissao = DataDoCampo(mskDtAdmissao))
        insercao.inclui("data_adms", *admissao);
    insercao.inclui("valo_sala", ValorDoCampo(txtSalFixo));
    insercao.inclui("perc_pool", ValorDoCampo(txtPercPool));
    insercao.inclui("perc_coms", ValorDoCampo(txtPercIndi));
    return EncerraInsert(std::move(insercao));
}

data::Statement frmVendedor::MontaUpdate(qint32 id) {
    data::Statement comando = IniciaUpdate();
    comando << "data_adms=" << OuNulo(DataDoCampo(mskDtAdmissao)) << ", "
            << "valo_sala='" << ValorDoCampo(txtSalFixo) << "', "
            << "perc_pool='" << ValorDoCampo(txtPercPool) << "', "
            << "perc_coms='" << ValorDoCampo(txtPercIndi) << "' ";
    return EncerraUpdate(comando, id);
}

void frmVendedor::CarregaCampos(const data::Recordset& registro) {
    MostraValor(txtSalFixo, registro.Fields("valo_sala"));
    MostraValor(txtPercPool, registro.Fields("perc_pool"));
    MostraValor(txtPercIndi, registro.Fields("perc_coms"));
    MostraData(mskDtAdmissao, registro.Fields("data_adms"));
}

} // namespace vorta
