#include "audit/Documents.h"

#include "audit/Folding.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "shared/ValidaDocumentos.h"

#include <algorithm>

namespace vorta::audit {

namespace {

constexpr qsizetype cpfSize = 11, cnpjSize = 14;

bool ofOneCharacter(const QString& bare) {
    return std::ranges::all_of(bare, [&](QChar character) { return character == bare.front(); });
}

bool hasLetters(const QString& bare) {
    return std::ranges::any_of(bare, [](QChar character) { return character.isLetter(); });
}

bool isCpf(QString bare) {
    return bare.size() == cpfSize && !hasLetters(bare) && !ofOneCharacter(bare) && ValidaCPF(bare);
}

bool isCnpj(QString bare) {
    return bare.size() == cnpjSize && !ofOneCharacter(bare) && ValidaCNPJAlfanumerico(bare);
}

QString masked(const QString& bare) {
    return bare.size() == cpfSize
               ? Mid(bare, 1, 3) + u'.' + Mid(bare, 4, 3) + u'.' + Mid(bare, 7, 3) + u'-' + Mid(bare, 10, 2)
               : Mid(bare, 1, 2) + u'.' + Mid(bare, 3, 3) + u'.' + Mid(bare, 6, 3) + u'/' + Mid(bare, 9, 4) + u'-' +
                     Mid(bare, 13, 2);
}

QString whyWrong(const QString& bare, bool natural) {
    const qsizetype size = natural ? cpfSize : cnpjSize;
    const QString kind = natural ? u"CPF"_s : u"CNPJ"_s;
    if (bare.size() != size)
        return u"%1 caracteres; um %2 tem %3"_s.arg(bare.size()).arg(kind).arg(size);
    if (natural && hasLetters(bare))
        return u"um CPF só tem algarismos"_s;
    return ofOneCharacter(bare) ? u"um só algarismo repetido"_s : u"dígito verificador errado"_s;
}

} // namespace

Judgement JudgeDocument(const QString& kind, const QString& document, bool letters) {
    const QString bare = Bare(document);
    if (bare.isEmpty())
        return {Check::DocumentMissing, {}, {}};
    if (bare.count(u'0') == bare.size())
        return {Check::DocumentMissing, u"zeros no lugar do documento"_s, {}};
    const bool natural = kind == u"F";
    if (natural ? isCnpj(bare) : isCpf(bare))
        return {Check::DocumentOfOtherKind, natural ? u"CNPJ em pessoa física"_s : u"CPF em pessoa jurídica"_s, bare};
    if (natural ? !isCpf(bare) : !isCnpj(bare))
        return {Check::DocumentWrong, whyWrong(bare, natural), bare};
    if (hasLetters(bare) && !letters)
        return {Check::DocumentWithLetters, u"o parâmetro PESS_CNPJ_ALFANUMERICO não está em \"S\""_s, bare};
    if (document != masked(bare))
        return {Check::DocumentUnmasked, u"a busca e a verificação de duplicidade procuram %1"_s.arg(masked(bare)),
                bare};
    return {{}, {}, bare};
}

} // namespace vorta::audit
