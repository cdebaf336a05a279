#include "search/ModuleCEP.h"

#include "base/Text.h"

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;

/// How many rows pass between two reports of progress.
constexpr int passoProgresso = 100;

Recordset Abre(ContextoExecucao& contexto, const Statement& comando, const data::Reading& leitura = {}) {
    Recordset registros;
    registros.Open(comando.upper(), contexto.cep(), leitura);
    return registros;
}

/// One column of the first row, empty text without a row.
QString Coluna(ContextoExecucao& contexto, const Statement& comando, const char* coluna) {
    const Recordset registros = Abre(contexto, comando);
    return registros.Eof() ? QString() : registros.Fields(coluna).textOr({});
}

} // namespace

QString RetornaLogradouros(ContextoExecucao& contexto, const QString& tipo, const QString& valor) {
    Statement comando;
    comando << "SELECT CEP8_LOGR, NOME_LOGR, UF00_LOGR, CHAV_TIPO, CHAV_LOCA, CHAV_BAIR "
            << "FROM LOGR ";
    if (Trim(tipo) == u"CEP")
        comando << " WHERE CEP8_LOGR = '" << Trim(valor) << "'";
    else
        comando << " WHERE NOME_LOGR like '%" << Trim(valor) << "%'";
    const auto mostra = [&](qint64 lidos) { contexto.platform().progress(lidos, screen::unknownTotal); };
    Recordset registros = Abre(contexto, comando, {.fetched = mostra});
    if (registros.Eof()) {
        contexto.platform().progress(0, 0);
        return {};
    }
    const int total = registros.RecordCount();
    QString resultado = QString::number(total) + u'^';
    for (int lidos = 0; !registros.Eof(); registros.MoveNext(), ++lidos) {
        if (lidos % passoProgresso == 0)
            contexto.platform().progress(lidos, total);
        const auto coluna = [&](const char* nome) { return registros.Fields(nome).textOr({}); };
        const QString localidade = coluna("CHAV_LOCA");
        resultado += coluna("CEP8_LOGR") + u'^';
        resultado += RetornaTipoLogradouro(contexto, coluna("CHAV_TIPO")) + u'^';
        resultado += coluna("NOME_LOGR") + u'^';
        resultado += RetornaBairro(contexto, coluna("CHAV_BAIR"), localidade) + u'^';
        resultado += RetornaLocalidade(contexto, localidade) + u'^';
        resultado += coluna("UF00_LOGR") + u'^';
    }
    contexto.platform().progress(0, 0);
    return resultado;
}

QString RetornaTipoLogradouro(ContextoExecucao& contexto, const QString& chave) {
    return Coluna(contexto, Statement() << "SELECT NOME_TIPO, ABRV_TIPO FROM TIPO WHERE CHAV_TIPO = '" << chave << "'",
                  "ABRV_TIPO");
}

QString RetornaBairro(ContextoExecucao& contexto, const QString& chaveBairro, const QString& chaveLocalidade) {
    return Coluna(contexto,
                  Statement() << "SELECT NOME_BAIR, ABRV_BAIR, UF00_BAIR FROM BAIR WHERE CHAV_BAIR = '" << chaveBairro
                              << "' AND CHAV_LOCA = '" << chaveLocalidade << "'",
                  "nome_bair");
}

QString RetornaLocalidade(ContextoExecucao& contexto, const QString& chave) {
    return Coluna(contexto, Statement() << "SELECT NOME_LOCA FROM LOCA WHERE CHAV_LOCA = '" << chave << "'",
                  "nome_loca");
}

} // namespace vorta
