#include "base/Literals.h"
#include "robot/TestStage.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

struct Played {
    const char* name;
    const char* commands; ///< behind the launch, which stands in line 1
    const char* verdict;  ///< empty: passes
};

std::ostream& operator<<(std::ostream& out, const Played& played) {
    return out << played.name;
}

std::string nameOf(const testing::TestParamInfo<Played>& played) {
    return played.param.name;
}

class AScenario : public testing::TestWithParam<Played> {};

} // namespace

TEST_P(AScenario, HasThisVerdict) {
    const QByteArray text = QByteArray("launch \"1^1^PRD^False^\"\n") + GetParam().commands;
    EXPECT_EQ(Play(text.constData()), GetParam().verdict);
}

constexpr Played passing[] = {
    {"types", "type txtNome \"ana\"\nexpect txtNome text \"ana\"\nexpect focus txtNome", ""},
    {"typesOverWhatIsThere", "type txtNome \"ana\"\ntype txtNome \"eva\"\nexpect txtNome text \"eva\"", ""},
    {"typesNothingToEmpty", "type txtNome \"ana\"\ntype txtNome \"\"\nexpect txtNome text \"\"", ""},
    {"keepsTheLimit", "type txtCurto \"abcd\"\nexpect txtCurto text \"abc\"\nexpect txtCurto maxlength 3", ""},
    {"leavesALockedFieldAlone",
     "type txtTrancado \"x\"\nexpect txtTrancado text \"fixo\"\nexpect txtTrancado locked true", ""},
    {"movesOnWithEnter", "type txtNome \"a\\nb\"\nexpect focus txtCurto\nexpect txtCurto text \"b\"", ""},
    {"pressesKeys",
     "focus txtNome\npress a\npress \" \"\npress b\npress Backspace\npress Tab\nexpect focus txtCurto\nexpect txtNome "
     "text \"a \"",
     ""},
    {"walksBack", "focus txtCurto\npress BackTab\nexpect focus txtNome", ""},
    {"holdsAKeyDown", "type txtNome \"abcdef\"\nhold Backspace 4\nexpect txtNome text \"ab\"", ""},
    {"doesACommandAgainAndAgain", "focus txtNome\ntimes 3 press x\nexpect txtNome text \"x\"*3", ""},
    {"startsWithTheFirstField", "expect focus txtNome\nleave\npress Tab\nexpect focus txtNome", ""},
    {"fillsAMask", "type mskCep \"01310100\"\nexpect mskCep text \"01310-100\"\nexpect mskCep mask \"#####-###\"", ""},
    {"choosesFromAList",
     "expect cboLista items 2\nexpect cboLista item 1 \"B\"\nchoose cboLista \"B\"\nexpect cboLista text \"B\"\nexpect "
     "cboLista tooltip \"aberta\"",
     ""},
    {"clicksOptionsAndChecks",
     "expect opSim checked true\nclick opNao\nexpect opSim checked false\nclick chkTudo\nexpect chkTudo checked true",
     ""},
    {"bringsATabToTheFront",
     "expect SSTab text \"Primeira\"\ntype txtAtras \"x\"\nexpect SSTab text \"Segunda\"\ntab SSTab "
     "\"Primeira\"\nexpect SSTab text \"Primeira\"",
     ""},
    {"looksAtAGrid",
     "expect Flex rows 3\nexpect Flex cols 2\nexpect Flex cell 0 1 \"Fone\"\nexpect Flex cell 2 0 \"JOSE\"\nclick Flex "
     "2\nexpect Flex row 2\ndblclick Flex 1 1\nexpect txtNome text \"MARIA\"\nclick Flex 0\nexpect Flex row 0",
     ""},
    {"looksAtColours",
     "expect lblTitulo foreground 255\nexpect lblTitulo bold true\nexpect lblTitulo text \"Titulo & Cia\"\nexpect "
     "txtNome background 16777215\nexpect cmdGrava background 2147483663\nexpect cmdGrava text \"Grava\"",
     ""},
    {"looksAtStates", "expect cmdParado enabled false\nexpect txtOculto visible false\nexpect txtOculto picture \"\"",
     ""},
    {"namesMembersOfAnArray", "click cmdImagem1(0)\nexpect focus cmdImagem1(0)", ""},
    {"findsStatementsInOrder",
     "type txtNome \"eva\"\nclick cmdGrava\nexpect sql \"INSERT INTO A VALUES ('eva')\"\nexpect sql \"UPDATE B SET "
     "C=1\"\nexpect nosql \"DELETE\"\nexpect mode \"\"",
     ""},
    {"forgets", "click cmdGrava\nclick cmdAvisa\nforget\nexpect nobox\nexpect nosql \"INSERT\"", ""},
    {"looksAtBoxes",
     "click cmdAvisa\nexpect box \"Feito!\" title \"Aviso\" icon information buttons OK\nexpect box \"Simples\" icon "
     "none title \"Cadastro de Pessoas\"\nexpect nobox",
     ""},
    {"answersQuestions",
     "answer \"Cancela\"\nclick cmdPergunta\nexpect txtNome text \"outra\"\nanswer \"Sim\"\nclick cmdPergunta\nexpect "
     "txtNome text \"sim\"\nexpect box \"Continua?\\nSim\" buttons YesNoCancel",
     ""},
    {"mayAnswerOK", "answer \"OK\"\nclick cmdAvisa", ""},
    {"goesOnInsideAModalScreen",
     "click cmdAbre\nexpect screen frmDois\nexpect caption \"Dois\"\ntype txtDois \"x\"\nclick cmdVolta\nexpect screen "
     "frmUm\nexpect txtNome text \"voltou\"\nexpect box \"Voltou\"",
     ""},
    {"closesByTheFrame", "click cmdAbre\nclose\nexpect screen frmUm\nexpect txtNome text \"voltou\"", ""},
    {"opensAScreen", "open frmDois\nexpect screen frmDois\nclick cmdVolta\nexpect screen frmUm", ""},
    {"mayEndInsideAModalScreen", "click cmdAbre\nexpect screen frmDois", ""},
    {"writesFieldsDirectly",
     "set txtTrancado \"novo\"\nexpect txtTrancado text \"novo\"\nset opNao true\nexpect opNao checked true", ""},
    {"readsAndWritesTheContext",
     "expect caption \"Um (1^1^PRD^False^)\"\ncontext CodigoUsuario \"12\"\nexpect context CodigoUsuario "
     "\"12\"\ncontext ModoTela \"I\"\nexpect mode \"I\"",
     ""},
    {"fixesTheClock", "today 2026-11-20 14:30\nclick cmdHora\nexpect txtNome text \"20/11/2026 14:30\"", ""},
    {"looksAtTheAddress", "click cmdCorreio\nexpect mail \"mailto:a@b.c\"", ""},
    {"endsByTheFrame", "expect running\nclose\nexpect ended\nexpect context CodigoEmpresa \"0\"", ""},
    {"endsAtAHardStop", "click cmdFim\nexpect ended", ""},
    {"endsWithAnError", "click cmdErro\nexpect nobox\nexpect ended 94", ""},
    {"startsAgainBehindAnEnd", "close\nlaunch \"2\"\nexpect caption \"Um (2)\"", ""},
    {"answersWhileItCloses",
     "click cmdImagem1(0)\nanswer \"Sim\"\nclose\nexpect box \"Sai?\" buttons YesNo\nexpect ended", ""},
    {"playsACommandForItsEngine", "only firebird type txtNome \"ana\"\nexpect txtNome text \"ana\"", ""},
    {"passesACommandForAnotherEngine", "only sqlserver expect txtNome text \"x\"\nexpect txtNome text \"\"", ""},
    {"leavesAField", "type txtNome \"a\"\nleave\npress Tab\nexpect focus txtNome", ""},
    {"doesNotClickWhenTheFocusStays", "focus txtPreso\nclick cmdAvisa\nexpect nobox\nexpect focus txtPreso", ""},
};

constexpr Played failing[] = {
    {"unknownCommand", "clique cmdSAIR", "2: expected a command, was the unknown word clique"},
    {"unknownEngine", "only oracle leave", "2: expected the engine firebird or sqlserver, was oracle"},
    {"unknownCommandForAnotherEngine", "only sqlserver clique cmdSAIR",
     "2: expected a command, was the unknown word clique"},
    {"failureForOneEngine", "only firebird expect txtNome text \"x\"", "2: expected txtNome text \"x\", was \"\""},
    {"unknownField", "open frmDois\nclick cmdNada", "3: expected a field cmdNada, screen frmDois has txtDois cmdVolta"},
    {"fieldOfAScreenBelow", "click cmdAbre\nexpect txtNome text \"\"",
     "3: expected a field txtNome, screen frmDois has txtDois cmdVolta"},
    {"unknownProperty", "expect txtNome colour 1", "2: expected a property, was colour"},
    {"noProperty", "expect txtNome", "2: expected a property, was none"},
    {"propertyOfAnotherKind", "expect txtNome items 1", "2: error 438: txtNome has no property items"},
    {"unknownContextField", "context Nada \"1\"", "2: error 438: O contexto não tem o campo Nada"},
    {"unknownScreen", "open frmTres", "2: expected a screen frmTres, the program has none"},
    {"heldCharacter", "focus txtNome\nhold a 3", "3: expected the name of a key, was a"},
    {"commandTimesNothing", "times x press a", "2: expected a number, was x"},
    {"unknownKey", "focus txtNome\npress F13", "3: expected a key, was F13"},
    {"unknownAnswer", "answer \"Talvez\"", "2: expected the answer Sim, Não, Cancela, OK or Escape, was Talvez"},
    {"unknownTab", "tab SSTab \"Terceira\"",
     "2: expected a tab \"Terceira\" in SSTab, its tabs are \"Primeira|Segunda\""},
    {"unknownItem", "choose cboLista \"C\"", "2: expected an item \"C\" in cboLista, its items are \"A|B\""},
    {"unknownOption", "click cmdAvisa\nexpect box \"Feito!\" colour red",
     "3: expected title, icon or buttons of a box, was colour red"},
    {"unclosedText", "expect txtNome text \"a", "2: expected a command, the text \"a has no closing quote"},
    {"tooFewWords", "type txtNome", "2: expected type FIELD \"text\", there were 2 words"},
    {"tooManyWords", "expect nobox now", "2: expected expect nobox, there were 3 words"},
    {"wordsBehindAValue", "expect txtNome text \"\" \"\"", "2: expected 1 words behind text, there were 2"},
    {"disabled", "click cmdParado", "2: expected cmdParado to be enabled, it is disabled"},
    {"hidden", "type txtOculto \"a\"", "2: expected txtOculto to be visible, it is hidden"},
    {"typingIntoALabel", "type lblTitulo \"a\"",
     "2: expected lblTitulo to take the focus, it is a field that never does"},
    {"choosingFromAText", "choose txtNome \"a\"", "2: expected txtNome to be a list, it is none"},
    {"keyWithoutAFocus", "leave\npress a", "3: expected a field with the focus, there is none"},
    {"gridWithoutARow", "click Flex", "2: expected a row to click in Flex"},
    {"rowOutsideTheGrid", "click Flex 3", "2: expected Flex to have row 3 and column 0, it has 3 rows and 2 columns"},
    {"cellOutsideTheGrid", "expect Flex cell 3 0 \"\"", "2: error 438: Flex has 3 rows and 2 columns, no cell 3 0"},
    {"rowOfAButton", "click cmdGrava 1", "2: expected cmdGrava to be a grid, it is none"},
    {"otherText", "type txtNome \"ana\"\nexpect txtNome text \"eva\"", "3: expected txtNome text \"eva\", was \"ana\""},
    {"otherTruth", "expect txtNome enabled false", "2: expected txtNome enabled \"false\", was \"true\""},
    {"noTruth", "expect txtNome enabled yes", "2: expected true or false, was yes"},
    {"noNumber", "expect Flex rows many", "2: expected a number, was many"},
    {"otherItem", "expect cboLista item 0 \"B\"", "2: expected cboLista item 0 \"B\", was \"A\""},
    {"noItem", "expect cboLista item 2 \"B\"", "2: error 438: cboLista has 2 items, none with number 2"},
    {"otherScreen", "expect screen frmDois", "2: expected the active screen frmDois, was frmUm"},
    {"otherCaption", "expect caption \"Dois\"", "2: expected caption \"Dois\", was \"Um (1^1^PRD^False^)\""},
    {"otherFocus", "focus txtNome\nexpect focus txtCurto", "3: expected the focus on txtCurto, was on txtNome"},
    {"noFocus", "leave\nexpect focus txtNome", "3: expected the focus on txtNome, was on no field"},
    {"otherMode", "expect mode \"I\"", "2: expected mode \"I\", was \"\""},
    {"otherContext", "expect context CodigoUsuario \"1\"", "2: expected context CodigoUsuario \"1\", was \"0\""},
    {"noBox", "expect box \"a\"", "2: expected box \"a\", there was none"},
    {"otherBox", "click cmdAvisa\nexpect box \"Simples\"", "3: expected box \"Simples\", was \"Feito!\""},
    {"otherTitle", "click cmdAvisa\nexpect box \"Feito!\" title \"A\"", "3: expected box title \"A\", was \"Aviso\""},
    {"otherIcon", "click cmdAvisa\nexpect box \"Feito!\" icon critical",
     "3: expected box icon \"critical\", was \"information\""},
    {"otherButtons", "click cmdAvisa\nexpect box \"Feito!\" buttons YesNo",
     "3: expected box buttons \"YesNo\", was \"OK\""},
    {"boxNotLookedAt", "click cmdAvisa\nexpect box \"Feito!\"\nexpect nobox",
     "4: expected no further box, there was \"Simples\""},
    {"boxWithoutAnswer", "click cmdPergunta",
     "2: expected no box that asks, there was \"Continua?\\r\\nSim\" and no answer waiting"},
    {"answerTheBoxDoesNotOffer", "answer \"OK\"\nclick cmdPergunta",
     "2: expected a box with this answer, there was \"Continua?\\r\\nSim\""},
    {"answerLeftOver", "answer \"Sim\"\nclick cmdAvisa", "2: expected a box that asks for this answer, there was none"},
    {"noStatement", "expect sql \"SELECT 1\"", "2: expected statement \"SELECT 1\", no statement was left"},
    {"otherStatement", "click cmdGrava\nexpect sql \"UPDATE B SET C=2\"",
     "3: expected statement \"UPDATE B SET C=2\", 2 others were sent, the nearest \"UPDATE B SET C=1\""},
    {"statementsInOtherOrder",
     "click cmdGrava\nexpect sql \"UPDATE B SET C=1\"\nexpect sql \"INSERT INTO A VALUES ('')\"",
     "4: expected statement \"INSERT INTO A VALUES ('')\", no statement was left"},
    {"statementThatIsThere", "click cmdGrava\nexpect nosql \"SET C\"",
     "3: expected no statement with \"SET C\", there was \"UPDATE B SET C=1\""},
    {"otherMail", "expect mail \"mailto:x\"", "2: expected address \"mailto:x\", was \"\""},
    {"notEnded", "expect ended", "2: expected an ended program, it runs on frmUm"},
    {"endedWithAnError", "click cmdErro\nexpect ended",
     "3: expected an end without a run-time error, was run-time error 94: Uso inválido de nulo "},
    {"endedWithoutAnError", "close\nexpect ended 94", "3: expected an end with run-time error 94, was without one"},
    {"commandBehindTheEnd", "close\nclick cmdGrava", "3: expected a running program, it has ended"},
    {"runningBehindTheEnd", "close\nexpect running", "3: expected a running program, it has ended"},
    {"secondLaunch", "launch \"1\"", "2: expected a program that is not running, it runs already"},
    {"badDate", "today 20/11/2026", "2: expected a date yyyy-mm-dd and a time hh:mm, was 20/11/2026"},
    {"pathOutside", "file ../a \"x\"", "2: expected a path inside the installation, was ../a"},
    {"refusedStatement", "sql \"\"", "2: error -2147217900: recusado"},
    {"otherRows", "expect query \"select 1\" \"1\"", "2: expected rows \"1\", was \"\""},
};

INSTANTIATE_TEST_SUITE_P(Passes, AScenario, testing::ValuesIn(passing), nameOf);
INSTANTIATE_TEST_SUITE_P(Fails, AScenario, testing::ValuesIn(failing), nameOf);

TEST(APlayer, FailsACommandInFrontOfTheLaunch) {
    EXPECT_EQ(Play("click cmdSAIR"), "1: expected a running program, it has not been launched");
    EXPECT_EQ(Play("expect ended"), "1: expected an ended program, it has not been launched");
}

TEST(APlayer, PassesWithNothingToPlay) {
    EXPECT_EQ(Play("# nothing\n"), "");
}

TEST(APlayer, KeepsAContextWrittenBeforeTheLaunch) {
    TestStage stage;
    EXPECT_EQ(Play(stage, "context VinculoAtual \"S\"\nlaunch \"1\"\nexpect context VinculoAtual \"S\""), "");
    EXPECT_EQ(stage.casts, 1);
}

TEST(APlayer, StopsEveryHandlerAtAFailureInsideAModalScreen) {
    TestStage stage;
    EXPECT_EQ(Play(stage, "launch \"1\"\nclick cmdAbre\nnada\nexpect running"),
              "3: expected a command, was the unknown word nada");
}

TEST(APlayer, SendsStatementsToTheBaseOfTheEnvironment) {
    TestStage stage;
    EXPECT_EQ(Play(stage, "sql \"a\"\nlaunch \"1^1^HIST^False^\"\nsql \"b\"\nsqlcep \"c\"\nclose\nsql \"d\"\nlaunch "
                          "\"1^1^DEV^\"\nsql \"e\""),
              "");
    EXPECT_EQ(stage.executed, (QStringList{u"1:a"_s, u"1:b"_s, u"3:c"_s, u"2:d"_s, u"2:e"_s}));
}

TEST(APlayer, LooksAtRowsOfBothDatabases) {
    TestStage stage;
    stage.rows = u"1|<null>\n2|X"_s;
    EXPECT_EQ(Play(stage, "expect query \"q\" \"1|<null>\\n2|X\"\nexpect cepquery \"c\" \"1\\|<null>\\n2\\|X\""), "");
    EXPECT_EQ(stage.queried, (QStringList{u"0:q"_s, u"3:c"_s}));
}

TEST(APlayer, WritesAndRemovesFilesOfTheInstallation) {
    const QTemporaryDir home;
    TestStage stage;
    stage.setHome(home.path());
    EXPECT_EQ(Play(stage, "file config/a.ini \"{home}/x^\\nÇ\"\nfile b \"\"\nnofile b\nnofile never"), "");
    QFile written(home.filePath(u"config/a.ini"_s));
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(written.readAll()), home.path() + u"/x^\nÇ"_s);
    EXPECT_FALSE(QFile::exists(home.filePath(u"b"_s)));
}

TEST(APlayer, TakesTheMainDatabaseOnAMachineWithTheMarkerFile) {
    const QTemporaryDir home;
    TestStage stage;
    stage.setHome(home.path());
    EXPECT_EQ(Play(stage, "file config/ORBALUX.txt \"\"\nsql \"a\"\nlaunch \"1^1^DEV^False^\""), "");
    EXPECT_EQ(stage.executed, QStringList{u"0:a"_s});
}

} // namespace vorta::test
