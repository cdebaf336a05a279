#include "base/CampoDelimitado.h"

#include "base/Literals.h"
#include "base/Text.h"

namespace vorta {

namespace {

constexpr QChar mark = u'^';

/// The `index`-th piece of a text in which every piece is closed by `separator`; `missing` when there are fewer.
QString closedPiece(int index, const QString& text, QChar separator, const QString& missing) {
    QString piece;
    qsizetype position = 0;
    for (int walked = 0; walked < index; ++walked) {
        const qsizetype next = text.indexOf(separator, position);
        if (next < 0)
            return missing;
        piece = text.mid(position, next - position);
        position = next + 1;
    }
    return piece;
}

} // namespace

QString CampoDelimitado(qint16 indice, QString& texto) {
    if (texto.isEmpty())
        return {};
    const QString trimmed = Trim(texto);
    if (!trimmed.endsWith(mark))
        texto = trimmed + mark;
    return closedPiece(indice, texto, mark, u"."_s);
}

QString CampoDaLinha(const QString& linha, qint16 indice) {
    QString fechada = linha + mark;
    return CampoDelimitado(indice, fechada);
}

qsizetype CamposNaLinha(const QString& linha) {
    return linha.count(mark) + (linha.endsWith(mark) ? 0 : 1);
}

QString CampoDelimitadoPor(qint16 indice, const QString& texto, QChar separador) {
    return closedPiece(indice, texto, separador, {});
}

} // namespace vorta
