#include "audit/Report.h"

#include "base/Csv.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/WhyNotWritten.h"

#include <QFileInfo>

#include <algorithm>
#include <numeric>

namespace vorta::audit {

namespace {

const QStringList columnTitles{u"Conferência"_s, u"Grupo"_s, u"Pessoa"_s, u"Nome"_s,      u"Documento"_s,
                               u"Situação"_s,    u"Campo"_s, u"Valor"_s,  u"Observação"_s};

QString numberOrNothing(qint64 number) {
    return number == 0 ? QString() : QString::number(number);
}

QStringList cellsOf(const Finding& finding, const QString& first) {
    const QString state = finding.person == 0 ? QString() : finding.deactivated ? u"desativada"_s : u"ativa"_s;
    return {first,
            numberOrNothing(finding.group),
            numberOrNothing(finding.person),
            finding.name,
            finding.document,
            finding.name.isEmpty() ? QString() : state,
            finding.field,
            finding.value,
            finding.words};
}

/// A finding is one line of the table, whatever lines its texts have.
QString onOneLine(QString text) {
    return text.replace(u'\r', u' ').replace(u'\n', u' ');
}

/// A page of its own: no script, nothing from elsewhere, and what stands in the register is text.
const QString pageHead =
    u"<!DOCTYPE html>\n<html lang=\"pt-BR\">\n<head>\n<meta charset=\"utf-8\">\n"
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
    "style-src 'unsafe-inline'\">\n"
    "<meta name=\"viewport\" content=\"width=device-width\">\n<title>%1</title>\n<style>\n"
    "body{font:15px/1.45 system-ui,sans-serif;margin:2em auto;max-width:80em;padding:0 1em;"
    "color:#222}\n"
    "h1{font-size:1.5em}table{border-collapse:collapse;width:100%}\n"
    "th,td{text-align:left;padding:.3em .6em;border-bottom:1px solid #ddd;vertical-align:top;"
    "overflow-wrap:anywhere}\n"
    "th{background:#f2f4f7;position:sticky;top:0;white-space:nowrap;overflow-wrap:normal}td.n{text-align:right;"
    "font-variant-numeric:tabular-nums}\n"
    "tr.zero{color:#888}summary{font-weight:600;cursor:pointer;padding:.5em 0}\n"
    "@media print{details{display:block}}\n"
    "</style>\n</head>\n<body>\n<h1>%1</h1>\n"_s;

QString rowOf(const QStringList& cells, const char* tag) {
    QString row = u"<tr>"_s;
    for (const QString& cell : cells)
        row += u"<%1>%2</%1>"_s.arg(QLatin1StringView(tag), cell.toHtmlEscaped());
    return row + u"</tr>\n"_s;
}

} // namespace

ReportFile::ReportFile(const QString& path) : file_(path) {
    const QFileInfo there(path);
    if ((there.exists() && !there.isFile()) || !file_.open(QIODevice::WriteOnly))
        fail();
    file_.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
}

void ReportFile::fail() const {
    throw RuntimeError(errorNumber::PathRefused, u"O arquivo %1 não pôde ser gravado: %2"_s.arg(
                                                     file_.fileName(), WhyNotWritten(file_.fileName())));
}

void ReportFile::write(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    if (file_.write(bytes) != bytes.size())
        fail();
}

void ReportFile::commit() {
    if (!file_.commit())
        fail();
}

Sheet::Sheet(const QString& path, const QStringList& titles) : file_(path) {
    file_.write(QString(QChar::ByteOrderMark));
    row(titles);
}

void Sheet::row(const QStringList& cells) {
    QStringList line;
    for (const QString& cell : cells)
        line << onOneLine(cell);
    file_.write(CsvRecord(line));
}

Report::Report(const QString& sheetPath, const QString& pagePath)
    : sheet_(sheetPath.isEmpty() ? nullptr : std::make_unique<Sheet>(sheetPath, columnTitles)),
      page_(pagePath.isEmpty() ? nullptr : std::make_unique<ReportFile>(pagePath)) {}

void Report::found(const Finding& finding) {
    const auto check = static_cast<std::size_t>(finding.check);
    ++counts_[check];
    if (sheet_)
        sheet_->row(cellsOf(finding, QString::fromLatin1(RowOf(finding.check).name)));
    if (page_ && first_[check].size() < mostOnPage)
        first_[check].push_back(finding);
}

qint64 Report::total() const {
    return std::accumulate(counts_.begin(), counts_.end(), qint64{0});
}

QStringList Report::table() const {
    QStringList lines;
    for (const CheckRow& row : checks)
        lines << u"%1  %2"_s.arg(count(row.check), 9).arg(QString::fromUtf8(row.title));
    return lines;
}

QString Report::page(const QString& title, const Extent& extent, const QDateTime& when) const {
    QString text = pageHead.arg(title.toHtmlEscaped());
    text += u"<p>%1 pessoas, %2 delas desativadas, conferidas em %3.</p>\n"_s.arg(extent.persons)
                .arg(extent.deactivated)
                .arg(when.toString(u"dd/MM/yyyy HH:mm"_s));
    text += u"<table>\n<tr><th>Conferência</th><th>Achados</th></tr>\n"_s;
    for (const CheckRow& row : checks) {
        const QString name = QString::fromUtf8(row.title).toHtmlEscaped();
        text += count(row.check) == 0 ? u"<tr class=\"zero\"><td>%1</td><td class=\"n\">0</td></tr>\n"_s.arg(name)
                                      : u"<tr><td><a href=\"#%1\">%2</a></td><td class=\"n\">%3</td></tr>\n"_s
                                            .arg(QString::fromLatin1(row.name), name)
                                            .arg(count(row.check));
    }
    text += u"</table>\n"_s;
    for (const CheckRow& row : checks) {
        const std::vector<Finding>& findings = first_[static_cast<std::size_t>(row.check)];
        if (findings.empty())
            continue;
        text += u"<details open id=\"%1\">\n<summary>%2 (%3)</summary>\n<table>\n"_s
                    .arg(QString::fromLatin1(row.name), QString::fromUtf8(row.title).toHtmlEscaped())
                    .arg(count(row.check));
        text += rowOf(columnTitles.sliced(1), "th");
        for (const Finding& finding : findings)
            text += rowOf(cellsOf(finding, {}).sliced(1), "td");
        text += u"</table>\n"_s;
        if (const qint64 rest = count(row.check) - qint64(findings.size()); rest > 0)
            text += u"<p>E mais %1, que estão na planilha ou em grupos grandes.</p>\n"_s.arg(rest);
        text += u"</details>\n"_s;
    }
    return text + u"</body>\n</html>\n"_s;
}

void Report::finish(const QString& title, const Extent& extent, const QDateTime& when) {
    if (page_)
        page_->write(page(title, extent, when));
    if (sheet_)
        sheet_->commit();
    if (page_)
        page_->commit();
}

} // namespace vorta::audit
