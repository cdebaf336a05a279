#include "audit/Report.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "support/ErrorOf.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace vorta;
using audit::Check;
using audit::Finding;

namespace {

QString contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

Finding named(const QString& name) {
    return {.check = Check::Mail, .person = 7, .name = name, .field = u"EMAI_PESS"_s, .value = u"x"_s, .words = u"y"_s};
}

/// Names that want to be more than a name.
const QStringList hostile{u"<script>document.title='tomada'</script>"_s,
                          u"</table></details><h1 id=\"intruso\">INTRUSO</h1>"_s,
                          u"\" onmouseover=\"document.title='tomada'"_s,
                          u"<img src=\"http://exemplo.invalid/x.png\" onerror=\"document.title='tomada'\">"_s,
                          u"&lt;b&gt; %1 %2 AÇÚCAR & CIA"_s};

class Written {
  public:
    void write(const std::vector<Finding>& findings) {
        audit::Report report(csv(), html());
        for (const Finding& each : findings)
            report.found(each);
        report.finish(u"Conferência <PRD>"_s, {1234, 5}, QDateTime(QDate(2026, 11, 20), QTime(14, 30)));
        table = report.table();
    }
    QString csv() const { return folder_.filePath(u"achados.csv"_s); }
    QString html() const { return folder_.filePath(u"achados.html"_s); }
    QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files); }
    QStringList table;

  private:
    QTemporaryDir folder_;
};

} // namespace

TEST(Report, ASheetHasNoFormulasAndKeepsItsLines) {
    Written written;
    std::vector<Finding> findings;
    for (const QString& name :
         {u"=1+1"_s, u"+1"_s, u"-1"_s, u"@SUM(A1)"_s, u"\tx"_s, u"A;\"B\""_s, u"UMA\r\nDUAS"_s, u"A=B"_s})
        findings.push_back(named(name));
    written.write(findings);
    const QStringList lines = contentOf(written.csv()).split(u"\r\n"_s);
    ASSERT_EQ(lines.size(), 10);
    EXPECT_EQ(lines[0], u"Conferência;Grupo;Pessoa;Nome;Documento;Situação;Campo;Valor;Observação"_s);
    const QStringList names{u"'=1+1"_s,           u"+1"_s,        u"-1"_s, u"'@SUM(A1)"_s, u"'\tx"_s,
                            u"\"A;\"\"B\"\"\""_s, u"UMA  DUAS"_s, u"A=B"_s};
    for (qsizetype at = 0; at < names.size(); ++at)
        EXPECT_EQ(lines[at + 1], u"email-errado;;7;%1;;ativa;EMAI_PESS;x;y"_s.arg(names[at]));
    EXPECT_EQ(lines.last(), QString());
}

TEST(Report, APageShowsTextsAsTheyAreAndFetchesNothing) {
    Written written;
    std::vector<Finding> findings;
    for (const QString& name : hostile)
        findings.push_back(named(name));
    written.write(findings);
    const QString page = contentOf(written.html());
    for (const QString& name : hostile)
        EXPECT_TRUE(page.contains(u"<td>"_s + name.toHtmlEscaped() + u"</td>"_s)) << name;
    EXPECT_FALSE(page.contains(u"<script"_s));
    EXPECT_FALSE(page.contains(u"<img"_s));
    EXPECT_TRUE(page.contains(u"Content-Security-Policy"_s));
    EXPECT_TRUE(page.contains(u"<title>Conferência &lt;PRD&gt;</title>"_s));
    EXPECT_TRUE(page.contains(u"1234 pessoas, 5 delas desativadas, conferidas em 20/11/2026 14:30"_s));
    // The browser looks at this very page when the run names a place for it.
    if (const QString place = qEnvironmentVariable("VORTA_TEST_PAGE"); !place.isEmpty()) {
        EXPECT_TRUE(QFile::copy(written.html(), place));
    }
}

TEST(Report, APageShowsTheFirstOfEachCheckAndCountsAll) {
    Written written;
    written.write(std::vector<Finding>(1000, named(u"REPETIDA"_s)));
    const QString page = contentOf(written.html());
    EXPECT_EQ(page.count(u"REPETIDA"_s), qsizetype(audit::Report::mostOnPage));
    EXPECT_TRUE(page.contains(u"<summary>E-mail errado (1000)</summary>"_s));
    EXPECT_TRUE(page.contains(u"E mais 800"_s));
    EXPECT_EQ(contentOf(written.csv()).count(u"REPETIDA"_s), 1000);
    EXPECT_TRUE(written.table.contains(u"     1000  E-mail errado"_s));
    EXPECT_TRUE(written.table.contains(u"        0  Sem documento"_s));
}

TEST(Report, StandsWholeOrNotAtAll) {
    const Written place;
    {
        audit::Report report(place.csv(), place.html());
        report.found(named(u"A"_s));
    }
    EXPECT_TRUE(place.files().isEmpty()) << "an audit that broke off leaves nothing";
    EXPECT_EQ(test::ErrorOf([&] { const audit::Report report(place.csv() + u"/x/y.csv"_s, {}); }),
              errorNumber::PathRefused);
    EXPECT_EQ(test::ErrorOf([&] { const audit::Report report({}, QFileInfo(place.csv()).path()); }),
              errorNumber::PathRefused);
    EXPECT_EQ(test::ErrorOf([&] { const audit::Report report(u"/dev/full"_s, {}); }), errorNumber::PathRefused);
    EXPECT_TRUE(QFile::exists(u"/dev/full"_s));
}

TEST(Report, IsReadableByItsOwnerAlone) {
    Written written;
    written.write({});
    for (const QString& path : {written.csv(), written.html()})
        EXPECT_EQ(QFile::permissions(path) & ~(QFile::ReadUser | QFile::WriteUser),
                  QFile::ReadOwner | QFile::WriteOwner);
}
