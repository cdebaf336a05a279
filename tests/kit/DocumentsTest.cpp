#include "kit/Documents.h"
#include "shared/ValidaDocumentos.h"
#include "shared/inscricao/ConsisteInscricaoEstadual.h"

#include <QSet>
#include <algorithm>
#include <gtest/gtest.h>

using namespace vorta;

TEST(Documents, ThousandsOfNumbersPassTheChecksAndDiffer) {
    QSet<QByteArray> seen;
    for (quint64 number = 0; number < 5000; ++number) {
        QString cpf = QString::fromLatin1(kit::Cpf(number));
        QString cnpj = QString::fromLatin1(kit::Cnpj(number));
        EXPECT_EQ(cpf.size(), 14);
        EXPECT_EQ(cnpj.size(), 18);
        QString lettered = QString::fromLatin1(kit::LetteredCnpj(number));
        seen << kit::Cpf(number) << kit::Cnpj(number) << kit::LetteredCnpj(number);
        EXPECT_TRUE(std::any_of(lettered.begin(), lettered.end(), [](QChar sign) { return sign.isLetter(); }));
        EXPECT_TRUE(ValidaCNPJAlfanumerico(lettered)) << lettered;
        EXPECT_TRUE(ValidaCNPJAlfanumerico(cnpj)) << cnpj;
        EXPECT_TRUE(ValidaCPF(cpf)) << cpf;
        EXPECT_TRUE(ValidaCNPJ(cnpj)) << cnpj;
    }
    EXPECT_EQ(seen.size(), 15000);
}

TEST(Documents, StateRegistrationsFollowTheRulesOfTheirStates) {
    for (const char* state : {"CE", "ES", "PE", "PR", "RJ", "RS", "SC", "SP", "BA"})
        for (quint64 number = 1; number < 500; ++number) {
            const QByteArray registration = kit::StateRegistration(state, number);
            EXPECT_EQ(ConsisteInscricaoEstadual(QString::fromLatin1(registration), QString::fromLatin1(state)), 0)
                << state << ' ' << registration.constData();
        }
}
