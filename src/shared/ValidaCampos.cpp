#include "shared/ValidaCampos.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "shared/TextoEntrada.h"

#include <array>

namespace vorta {

namespace {

/// A rule of an e-mail address and the words of its refusal.
struct RegraEmail {
    bool (*aceita)(const QString& email);
    const char* mensagem;
};

bool letraDeEmail(QChar letra) {
    const QChar minuscula = letra.toLower();
    return (minuscula >= u'a' && minuscula <= u'z') || (minuscula >= u'0' && minuscula <= u'9') ||
           QStringView(u"@.-_").contains(minuscula);
}

constexpr std::array regrasEmail{
    RegraEmail{[](const QString& email) { return email.size() >= 5; },
               "O e-mail digitado tem menos de 5 caracterec!!!"},
    RegraEmail{[](const QString& email) { return email.count(u'@') == 1; },
               "O nº de arrobas (@) do e-mail é inválido!!!"},
    RegraEmail{[](const QString& email) { return !email.startsWith(u'@'); },
               "O e-mail foi iniciado com uma arroba (@)!!!"},
    RegraEmail{[](const QString& email) { return !email.endsWith(u'@'); }, "O e-mail termina com uma arroba (@)!!!"},
    RegraEmail{[](const QString& email) { return email.contains(u'.'); },
               "O e-mail é inválido, pois não contém pontos (.)!!!"},
    RegraEmail{[](const QString& email) { return email.indexOf(u'.') != 0; },
               "O e-mail foi iniciado com um ponto (.)!!!"},
    RegraEmail{[](const QString& email) { return email.indexOf(u'.') != email.size() - 1; },
               "O e-mail termina com um ponto (.)!!!"},
    RegraEmail{[](const QString& email) { return email.indexOf(u'.', email.indexOf(u'@')) >= 0; },
               "O e-mail não tem nenhum ponto (.) após a arroba (@)!!!"},
    RegraEmail{[](const QString& email) { return email.indexOf(u".."_s) <= email.indexOf(u'@'); },
               "O e-mail contém pontos consecutivos (..) após o arroba (@)!!!"},
    RegraEmail{[](const QString& email) { return std::all_of(email.begin(), email.end(), letraDeEmail); },
               "Foi digitado um caracter inválido no e-mail!!!"},
};

} // namespace

QString FalhaEmail(const QString& email) {
    const auto* falha = std::find_if(regrasEmail.begin(), regrasEmail.end(),
                                     [&](const RegraEmail& regra) { return !regra.aceita(email); });
    return falha == regrasEmail.end() ? QString() : QString::fromUtf8(falha->mensagem);
}

bool ValidaEmail(ContextoExecucao& contexto, const QString& email) {
    const QString falha = FalhaEmail(email);
    if (!falha.isEmpty())
        contexto.program().MsgBox(falha);
    return falha.isEmpty();
}

bool ValidaDiaMes(const ContextoExecucao& contexto, QString& data) {
    if (data == u"__/__")
        return true;
    data += u'/' + contexto.hoje().toString(u"yyyy"_s);
    return IsDate(data);
}

QString FormataDataDigitada(const ContextoExecucao& contexto, const QString& texto, screen::MaskedField& campo) {
    const bool comHora = texto.size() > 10;
    const auto forma = [&](const QDateTime& momento) {
        return comHora ? FormatDateTime(momento) : FormatDate(momento.date());
    };
    if (Left(texto, 10) == u"__/__/____")
        return comHora ? u"__/__/____ __:__"_s : u"__/__/____"_s;
    if (Mid(texto, 7, 4) == u"____") {
        QString dias = Left(texto, 5);
        const qint64 quantos = ToInt32(Val(SubstituiTexto(dias, u"/"_s, u" "_s)));
        campo.setText(forma(contexto.platform().now().addDays(quantos)));
        return campo.text();
    }
    const std::optional<QDateTime> momento = ParseDate(texto);
    return momento ? forma(*momento) : texto;
}

QString FiltraTeclaNumerica(qint16 tecla) {
    constexpr qint16 retrocesso = 8;
    const bool passa = tecla == retrocesso || QStringView(u",0123456789%-").contains(QChar(tecla));
    return passa ? QString::number(tecla) : u"0"_s;
}

QString VirgulaParaPonto(QString& texto) {
    return texto.replace(u',', u'.');
}

} // namespace vorta
