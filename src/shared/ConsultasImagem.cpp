#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "shared/Consultas.h"

#include <array>

namespace vorta {

namespace {

/// Which column keeps a picture's path. "WEBNatural" has none of its own and falls on the local thumbnail.
struct ColunaImagem {
    QStringView tipo;
    const char* coluna;
};

constexpr std::array colunasImagem{
    ColunaImagem{u"LocalThumb", "CAMINHO_ARQ_LOCAL_THUMB"},
    ColunaImagem{u"LocalNatural", "CAMINHO_ARQ_LOCAL_NATURAL"},
    ColunaImagem{u"WEBThumb", "CAMINHO_ARQ_WEB_THUMB"},
    ColunaImagem{u"WEBNatural", "CAMINHO_ARQ_LOCAL_THUMB"},
};

} // namespace

QString RetornaCaminhoImagem(ContextoExecucao& contexto, const QString& id, const QString& tipo) {
    data::Statement comando;
    comando << "SELECT * FROM prod where idprod=" << Trim(id);
    data::Recordset registros = AbreLeitura(contexto, comando);
    if (registros.Eof())
        return {};
    for (const ColunaImagem& linha : colunasImagem)
        if (tipo == linha.tipo)
            return registros.Fields(linha.coluna).textOr({});
    return {};
}

QString LocalizaImagemProduto(ContextoExecucao& contexto, const QString& codigo) {
    const screen::Platform& arquivos = contexto.platform();
    try {
        contexto.ImagemProduto = contexto.CaminhoImagens + Trim(codigo) + contexto.ExtensaoImagens;
        if (arquivos.fileExists(contexto.ImagemProduto))
            return contexto.ImagemProduto;
        const qint32 id = IdProdutoPorCodigo(contexto, codigo);
        const QString guardado = RetornaCaminhoImagem(contexto, QString::number(id), u"LocalThumb"_s);
        contexto.ImagemProduto =
            !guardado.isEmpty() && arquivos.fileExists(guardado) ? guardado : contexto.ImagemSemFoto;
    } catch (const RuntimeError& error) {
        if (error.number() != errorNumber::BadFileName)
            throw;
        contexto.ImagemProduto = contexto.ImagemSemFoto;
    }
    return contexto.ImagemProduto;
}

} // namespace vorta
