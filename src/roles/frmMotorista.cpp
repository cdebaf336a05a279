#include "roles/frmMotorista.h"

#include "shared/Capacidade.h"
#include "shared/Preenchimento.h"
#include "shared/ValidaCampos.h"

#include <array>

namespace vorta {

namespace {

constexpr RegrasTelaPapel regrasMotorista{.grupo = empregado,
                                          .sufixo = " - Cadastro de Motorista ",
                                          .rotuloId = "lblRowIdMotorista",
                                          .primeiroCampo = "mskDtAdmissao",
                                          .chaveNova = ChaveNova::Perguntada,
                                          .erroNoSalvar = ErroNoSalvar::PedeRollback,
                                          .guardaVinculo = true};

/// The texts of a driver in the order of the statements.
struct ColunaTexto {
    data::Piece coluna;
    const char* campo;
};
constexpr std::array textos{
    ColunaTexto{"cnh0_moto", "txtCNH"},
    ColunaTexto{"pron_moto", "txtProntuario"},
    ColunaTexto{"uf00_pron_moto", "cboUF_Emitente"},
    ColunaTexto{"pai0_moto", "txtPai0Moto"},
    ColunaTexto{"mae0_moto", "txtMae0Moto"},
    ColunaTexto{"refe_moto", "txtRefeMoto"},
};

screen::Field& CampoDe(const screen::Screen& tela, const ColunaTexto& texto) {
    return tela.field(QString::fromLatin1(texto.campo));
}

} // namespace

frmMotorista::frmMotorista(ContextoExecucao& contexto) : TelaPapel(contexto, TipoPapel::Motorista, regrasMotorista) {
    Registro({&mskDtAdmissao, &txtCNH, &txtProntuario, &cboUF_Emitente, &txtPai0Moto, &txtMae0Moto, &txtRefeMoto});
    mskDtAdmissao.selectsOnFocus = true;
    mskDtAdmissao.LostFocus = [this] {
        mskDtAdmissao.setText(FormataDataDigitada(TelaPapel::contexto(), mskDtAdmissao.text(), mskDtAdmissao));
    };
    cboUF_Emitente.completes = true;
    cboUF_Emitente.capacity = capacidade::codigo;
    txtRefeMoto.capacity = capacidade::nota;
    cboUF_Emitente.DropDown = [this] { PreencheUFs(TelaPapel::contexto(), cboUF_Emitente); };
}

data::Statement frmMotorista::MontaInsert(std::optional<qint32> id) {
    Insercao insercao = IniciaInsert(id);
    if (const std::optional<QString> admissao = DataDoCampo(mskDtAdmissao))
        insercao.inclui("data_adms", *admissao);
    for (const ColunaTexto& texto : textos)
        if (const std::optional<QString> valor = TextoDoCampo(CampoDe(*this, texto)))
            insercao.inclui(texto.coluna, *valor);
    return EncerraInsert(std::move(insercao));
}

data::Statement frmMotorista::MontaUpdate(qint32 id) {
    data::Statement comando = IniciaUpdate();
    comando << "data_adms=" << OuNulo(DataDoCampo(mskDtAdmissao));
    for (const ColunaTexto& texto : textos)
        comando << ", " << texto.coluna << "=" << OuNulo(TextoDoCampo(CampoDe(*this, texto)));
    comando << " ";
    return EncerraUpdate(comando, id);
}

void frmMotorista::CarregaCampos(const data::Recordset& registro) {
    for (const ColunaTexto& texto : textos)
        Mostra(CampoDe(*this, texto), registro.Fields(texto.coluna.toString()));
    MostraData(mskDtAdmissao, registro.Fields("data_adms"));
}

} // namespace vorta
