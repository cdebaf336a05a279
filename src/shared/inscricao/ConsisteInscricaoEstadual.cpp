#include "shared/inscricao/ConsisteInscricaoEstadual.h"

#include "base/Text.h"
#include "shared/inscricao/InscricaoEstadualRules.h"

#include <QRegularExpression>
#include <algorithm>

namespace vorta {

namespace {

int weightAt(const char* weights, int index) {
    const char sign = weights[index];
    return sign <= '9' ? sign - '0' : sign - 'A' + 10;
}

int sumOf(const CheckDigit& check, const QString& number) {
    int sum = check.start;
    for (int index = 0; check.weights[index] != '\0'; ++index) {
        const int weight = weightAt(check.weights, index);
        if (weight == 0)
            continue;
        const int product = number[index].digitValue() * weight;
        sum += check.sumsDigitsOfProducts ? product / 10 + product % 10 : product;
    }
    return sum;
}

bool holds(const CheckDigit& check, const QString& number) {
    const int modulus = int(qstrlen(check.digits));
    return number[check.place - 1] == QLatin1Char(check.digits[sumOf(check, number) % modulus]);
}

bool follows(const InscricaoEstadualRule& rule, const QString& bare) {
    const QString number = bare.rightJustified(rule.filledTo, u'0');
    const QRegularExpression form(QRegularExpression::anchoredPattern(QLatin1String(rule.form)));
    if (!form.match(number).hasMatch())
        return false;
    const int order = number.left(8).toInt();
    return order >= rule.from && order <= rule.to &&
           std::ranges::all_of(rule.checks, [&](const CheckDigit& check) { return holds(check, number); });
}

} // namespace

qint16 ConsisteInscricaoEstadual(const QString& inscricao, const QString& uf) {
    QString bare = UCase(inscricao);
    bare.remove(u'.').remove(u'-').remove(u'/').remove(u' ');
    const QString state = UCase(Trim(uf));
    if (bare == u"ISENTO")
        return 0;
    const bool right = !bare.isEmpty() && std::ranges::any_of(InscricaoEstadualRules(), [&](const auto& rule) {
        return state == QLatin1String(rule.uf) && follows(rule, bare);
    });
    return right ? 0 : 1;
}

} // namespace vorta
