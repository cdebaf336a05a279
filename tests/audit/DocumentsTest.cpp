#include "audit/Documents.h"
#include "base/Literals.h"

#include <gtest/gtest.h>

using namespace vorta;
using audit::Check;

TEST(AuditedDocuments, AreJudgedByTheKindOfPerson) {
    struct Case {
        const char* kind;
        const char* document;
        bool letters;
        std::optional<Check> check;
    };
    const std::vector<Case> cases{
        {"J", "11.222.333/0001-81", false, {}},
        {"J", "12.ABC.345/01DE-35", true, {}},
        {"J", "12.ABC.345/01DE-35", false, Check::DocumentWithLetters},
        {"J", "12.ABC.345/01DE-36", true, Check::DocumentWrong},
        {"J", "12.ABC.345/01DE-3X", true, Check::DocumentWrong},
        {"J", "11222333000181", false, Check::DocumentUnmasked},
        {"J", "12abc34501de35", true, Check::DocumentUnmasked},
        {"J", "11.222.333/0001-8", false, Check::DocumentWrong},
        {"J", "11.111.111/1111-11", false, Check::DocumentWrong},
        {"J", "529.982.247-25", false, Check::DocumentOfOtherKind},
        {"J", "00.000.000/0000-00", false, Check::DocumentMissing},
        {"J", "__.___.___/____-__", false, Check::DocumentMissing},
        {"J", " ", false, Check::DocumentMissing},
        {"J", "ISENTO", true, Check::DocumentWrong},
        {"", "11.222.333/0001-81", false, {}},
        {"F", "529.982.247-25", false, {}},
        {"F", "52998224725", false, Check::DocumentUnmasked},
        {"F", "529.982.247-26", false, Check::DocumentWrong},
        {"F", "529.98A.247-25", true, Check::DocumentWrong},
        {"F", "222.222.222-22", false, Check::DocumentWrong},
        {"F", "11.222.333/0001-81", false, Check::DocumentOfOtherKind},
        {"F", "12.ABC.345/01DE-35", true, Check::DocumentOfOtherKind},
        {"F", "000.000.000-00", false, Check::DocumentMissing},
    };
    for (const Case& each : cases) {
        const audit::Judgement judged =
            audit::JudgeDocument(QString::fromUtf8(each.kind), QString::fromUtf8(each.document), each.letters);
        EXPECT_EQ(judged.check, each.check) << each.kind << ' ' << each.document << ' ' << judged.words;
    }
}
