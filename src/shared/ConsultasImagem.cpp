#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "shared/Consultas.h"

#include <algorithm>
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

/// What a name must end in to be a picture; a drawing that can carry scripts is none.
constexpr std::array sufixosDeImagem{u".bmp", u".gif", u".jpeg", u".jpg", u".png", u".tif", u".tiff", u".webp"};

bool TemNomeDeImagem(const QString& arquivo) {
    return std::any_of(sufixosDeImagem.begin(), sufixosDeImagem.end(), [&](const char16_t* sufixo) {
        return arquivo.endsWith(QStringView(sufixo), Qt::CaseInsensitive);
    });
}

/// True for a file below a folder, by a path that never goes up. The folder is configured as the text in front of a
/// file's name, and may end in a part of that name; either carries either separator.
bool Abaixo(QString pasta, QString arquivo) {
    pasta.replace(u'\\', u'/');
    arquivo.replace(u'\\', u'/');
    const qsizetype barra = pasta.lastIndexOf(u'/');
    return barra >= 0 && arquivo.startsWith(pasta.first(barra + 1)) &&
           !QStringView(arquivo).sliced(barra + 1).split(u'/').contains(u"..");
}

} // namespace

bool ExisteImagemDoCodigo(const ContextoExecucao& contexto, const QString& pasta, const QString& arquivo) {
    return Abaixo(pasta, arquivo) && contexto.platform().fileExists(arquivo);
}

bool ExisteImagemGuardada(const ContextoExecucao& contexto, const QString& arquivo) {
    return TemNomeDeImagem(arquivo) && contexto.platform().fileExists(arquivo);
}

bool AbreNaAreaDeTrabalho(const ContextoExecucao& contexto, const QString& arquivo) {
    return (Abaixo(contexto.CaminhoImagensDetalhe, arquivo) || Abaixo(contexto.CaminhoImagens, arquivo)) &&
           ExisteImagemGuardada(contexto, arquivo);
}

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
    try {
        contexto.ImagemProduto = contexto.CaminhoImagens + Trim(codigo) + contexto.ExtensaoImagens;
        if (ExisteImagemDoCodigo(contexto, contexto.CaminhoImagens, contexto.ImagemProduto))
            return contexto.ImagemProduto;
        const qint32 id = IdProdutoPorCodigo(contexto, codigo);
        const QString guardado = RetornaCaminhoImagem(contexto, QString::number(id), u"LocalThumb"_s);
        contexto.ImagemProduto = ExisteImagemGuardada(contexto, guardado) ? guardado : contexto.ImagemSemFoto;
    } catch (const RuntimeError& error) {
        if (error.number() != errorNumber::BadFileName)
            throw;
        contexto.ImagemProduto = contexto.ImagemSemFoto;
    }
    return contexto.ImagemProduto;
}

} // namespace vorta
