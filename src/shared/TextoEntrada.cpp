#include "shared/TextoEntrada.h"

#include "base/Literals.h"
#include "base/Text.h"

#include <QUrl>

namespace vorta {

namespace {

using screen::Field;
using screen::FieldKind;

const QString comAcento = u"ÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÒÓÔÕÖÙÚÛÜàáâãäåçèéêëìíîïòóôõöùúûü"_s;
const QString semAcento = u"AAAAAACEEEEIIIIOOOOOUUUUaaaaaaceeeeiiiiooooouuuu"_s;

} // namespace

QString AlinhaTexto(QString& texto, qint16 largura, bool aEsquerda) {
    texto = Trim(texto);
    if (texto.isEmpty())
        texto = QString(largura, u' ');
    const QString cortado = Left(texto, largura);
    return aEsquerda ? cortado.leftJustified(largura) : cortado.rightJustified(largura);
}

QString AlinhaTexto(const data::Value& valor, qint16 largura, bool aEsquerda) {
    QString texto = valor.textOr({});
    return AlinhaTexto(texto, largura, aEsquerda);
}

QString SubstituiTexto(QString& texto, const QString& procurado, const QString& novo) {
    const QString alvo = Trim(procurado);
    if (alvo.isEmpty() || novo.contains(alvo))
        return texto;
    for (qsizetype onde = texto.indexOf(alvo); onde >= 0; onde = texto.indexOf(alvo))
        texto.replace(onde, alvo.size(), novo);
    return texto;
}

QString RemoveAcentos(const ContextoExecucao& contexto, const QString& texto) {
    if (contexto.PreservaAcentos)
        return texto;
    QString limpo = texto;
    for (QChar& letra : limpo) {
        if (letra.unicode() < 0x80)
            continue;
        const qsizetype onde = comAcento.indexOf(letra);
        if (onde >= 0)
            letra = semAcento[onde];
    }
    return limpo;
}

void ExecutaSemAcentos(ContextoExecucao& contexto, const data::Statement& comando) {
    contexto.principal().Execute(
        comando.upper().mapped([&](const QString& texto) { return RemoveAcentos(contexto, texto); }));
}

void EnviaComando(ContextoExecucao& contexto, const data::Statement& comando) {
    contexto.SqlComando = comando;
    ExecutaSemAcentos(contexto, contexto.SqlComando);
}

void SelecionaTexto(screen::Screen& tela) {
    Field* campo = tela.focus();
    if (campo && (campo->kind() == FieldKind::Text || campo->kind() == FieldKind::Masked))
        campo->select(0, static_cast<int>(campo->text().size()));
}

void LimpaMascara(screen::MaskedField& campo) {
    const QString mascara = campo.mask();
    campo.setMask({});
    campo.setText({});
    campo.setMask(mascara);
}

void AbreEmail(ContextoExecucao& contexto, const QString& endereco) {
    const QString aparado = Trim(endereco);
    if (aparado.isEmpty())
        return;
    // One address: what would divide it from a second one, or begin a header, is a part of it.
    const QByteArray codificado = QUrl::toPercentEncoding(LCase(aparado), "@+!$*'/");
    contexto.platform().openAddress(u"mailto:"_s + QString::fromLatin1(codificado));
}

void TrimCamposTexto(screen::Screen& tela) {
    for (Field* campo : tela.fields())
        if (campo->name().startsWith(u"txt"))
            campo->setText(Trim(campo->text()));
}

void BloqueiaCampo(Field& campo) {
    if (campo.kind() == FieldKind::Masked)
        campo.setEnabled(false);
    else
        campo.setLocked(true);
    campo.setBackground(screen::colour::Locked);
}

void LiberaCampo(Field& campo) {
    if (campo.kind() == FieldKind::Masked)
        campo.setEnabled(true);
    else
        campo.setLocked(false);
    campo.setBackground(screen::colour::Free);
}

} // namespace vorta
