#pragma once

#include "data/Adapter.h"

namespace vorta::robot {

/// The rows of a query as one text that a scenario can compare: columns divided by "|", rows by "\n", "<null>" for a
/// null, dates as yyyy-mm-dd (with hh:mm:ss behind a blank when they carry a time), decimals with a point and their
/// scale, texts without trailing blanks.
class RowText : public data::RowSink {
  public:
    const QString& text() const { return text_; }

    void columns(const QStringList&) override {}
    void beginRow() override;
    void null() override;
    void integer(qint64 value) override;
    void decimal(data::Decimal value) override;
    void text(std::string_view utf8) override;
    void date(const QDateTime& value) override;
    void endRow() override {}

  private:
    void add(const QString& value);

    QString text_;
    bool hasRows_ = false;
    bool hasColumns_ = false;
};

} // namespace vorta::robot
