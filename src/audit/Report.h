#pragma once

#include "audit/Audit.h"

#include <QDateTime>
#include <QSaveFile>

#include <memory>
#include <vector>

namespace vorta::audit {

/// A report as a file that stands whole at its place or not at all, readable by its owner. Raises 75, in words, when it
/// cannot be written.
class ReportFile {
  public:
    explicit ReportFile(const QString& path);
    void write(const QString& text);
    /// Puts the file at its place.
    void commit();

  private:
    [[noreturn]] void fail() const;
    QSaveFile file_;
};

/// A table for spreadsheets: semicolons, quotes around each cell, UTF-8 with its mark. A text that a spreadsheet would
/// take for a formula gets an apostrophe in front.
class Sheet {
  public:
    Sheet(const QString& path, const QStringList& titles);
    void row(const QStringList& cells);
    void commit() { file_.commit(); }

  private:
    ReportFile file_;
};

/// What an audit has found: counted for the terminal, each in the table for spreadsheets, and the first ones of each
/// check on a page to look at.
class Report : public Findings {
  public:
    /// Empty paths: no such file. Opens both at once, so that a place that takes none is told before the work.
    Report(const QString& sheetPath, const QString& pagePath);

    void found(const Finding& finding) override;
    void further(Check check, qint64 count) override { counts_[static_cast<std::size_t>(check)] += count; }

    /// Puts the files at their places.
    void finish(const QString& title, const Extent& extent, const QDateTime& when);
    qint64 count(Check check) const { return counts_[static_cast<std::size_t>(check)]; }
    qint64 total() const;
    /// A line for each check.
    QStringList table() const;

    static constexpr std::size_t mostOnPage = 200; ///< of each check

  private:
    QString page(const QString& title, const Extent& extent, const QDateTime& when) const;

    std::array<qint64, checks.size()> counts_{};
    std::array<std::vector<Finding>, checks.size()> first_;
    std::unique_ptr<Sheet> sheet_;
    std::unique_ptr<ReportFile> page_;
};

} // namespace vorta::audit
