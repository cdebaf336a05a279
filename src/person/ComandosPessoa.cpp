#include "person/ComandosPessoa.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "person/CamposPessoa.h"
#include "shared/Consultas.h"
#include "shared/Insercao.h"

#include <cstring>

namespace vorta {

namespace {

using data::Statement;

QString textoDe(const screen::Screen& tela, const char* campo) {
    return tela.field(QString::fromLatin1(campo)).text();
}

bool passa(Teste teste, const QString& texto) {
    switch (teste) {
    case Teste::A:
    case Teste::C:
        return !texto.isEmpty();
    case Teste::B:
        return !Trim(texto).isEmpty();
    case Teste::D:
        return IsDate(texto);
    case Teste::Sempre:
        return true;
    }
    return true;
}

QString valorDe(ContextoExecucao& contexto, Forma forma, const QString& texto, bool inclusao) {
    switch (forma) {
    case Forma::Texto:
        return texto;
    case Forma::Aparado:
        return Trim(texto);
    case Forma::CodigoMunicipio:
        return inclusao ? Trim(texto) : texto;
    case Forma::FisicaOuJuridica:
        return texto == u"Física" ? u"F"_s : u"J"_s;
    case Forma::IdVendedor:
        return QString::number(IdVendedor(contexto, texto));
    case Forma::IdTipoCliente:
        return QString::number(IdTipoCliente(contexto, texto));
    case Forma::IdTransportadora:
        return QString::number(IdTransportadora(contexto, texto));
    case Forma::Data:
        return FormatDateSql(ParseDate(texto)->date());
    }
    return texto;
}

/// The customer class is never null: without one the key is 0.
bool semNulo(const char* campo) {
    return std::strcmp(campo, "cboTipoCli") == 0;
}

/// The update spells the document's column in its own way where it has no value.
bool documento(const char* campo) {
    return std::strcmp(campo, "mskCodigo") == 0;
}

} // namespace

Statement MontaInsertPessoa(ContextoExecucao& contexto, const screen::Screen& tela, std::optional<qint32> novoId) {
    Insercao insercao("pess");
    insercao.incluiChave(Statement("idpess"), novoId);
    insercao.inclui("psfi_psju", valorDe(contexto, Forma::FisicaOuJuridica, textoDe(tela, "cboFisJur"), true));
    insercao.inclui("cpf0_cnpj", textoDe(tela, "mskCodigo"));
    insercao.inclui("nome_pess", textoDe(tela, "txtDescricao"));
    insercao.inclui("nome_conh", textoDe(tela, "txtNomeFantasia"));
    for (const ColunaComando& linha : ColunasInsert()) {
        const OrigemColuna& origem = OrigemDe(linha.campo);
        const QString texto = textoDe(tela, linha.campo);
        if (passa(origem.teste, texto))
            insercao.inclui(linha.coluna, valorDe(contexto, origem.forma, texto, true));
        else if (semNulo(linha.campo))
            insercao.inclui(linha.coluna, u"0"_s);
    }
    insercao.inclui("codi_empr", textoDe(tela, "lblCodiEmpresa"));
    return insercao.encerra(contexto);
}

Statement MontaUpdatePessoa(ContextoExecucao& contexto, const screen::Screen& tela) {
    Statement comando("UPDATE PESS SET ");
    const std::span<const ColunaComando> linhas = ColunasUpdate();
    for (const ColunaComando& linha : linhas) {
        const bool ultima = &linha == &linhas.back();
        const OrigemColuna& origem = OrigemDe(linha.campo);
        const QString texto = textoDe(tela, linha.campo);
        if (passa(origem.teste, texto))
            comando << linha.coluna << "='" << valorDe(contexto, origem.forma, texto, false) << "'";
        else if (documento(linha.campo))
            comando << "CPF0_CNPF=null";
        else if (semNulo(linha.campo))
            comando << linha.coluna << "=0";
        else
            comando << linha.coluna << "=null";
        if (ultima)
            comando << " ";
        else
            comando << ", ";
    }
    return comando << "WHERE (idPESS=" << textoDe(tela, "txtRowID") << ")";
}

} // namespace vorta
