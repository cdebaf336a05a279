#include "importer/Run.h"

#include "base/Csv.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/WhyNotWritten.h"
#include "importer/Importer.h"
#include "importer/KnownPersons.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace vorta::importer {

namespace {

/// Opens a table of the disk; raises 53 in words for anything else.
void OpenTable(QFile& file) {
    const QFileInfo info(file.fileName());
    if (!info.exists())
        throw RuntimeError(errorNumber::FileNotFound, u"Arquivo não encontrado: %1"_s.arg(file.fileName()));
    if (!info.isFile())
        throw RuntimeError(errorNumber::FileNotFound, u"%1 não é um arquivo comum"_s.arg(file.fileName()));
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(errorNumber::FileNotFound,
                           u"O arquivo %1 não pode ser lido: %2"_s.arg(file.fileName(), file.errorString()));
}

/// The rows that were refused, in a file that stands beside the table once it is complete. It never takes the place of
/// another one, in which somebody may be mending rows.
class RefusedRows {
  public:
    RefusedRows(const QString& table, const Columns& columns, const QStringList& header, QChar separator)
        : columns_(columns), separator_(separator) {
        const QFileInfo info(table);
        const QString base = info.path() + u'/' + info.completeBaseName() + u".recusadas"_s;
        QString path = base + u".csv"_s;
        for (int number = 2; QFile::exists(path); ++number)
            path = u"%1-%2.csv"_s.arg(base).arg(number);
        file_.setFileName(path);
        header_ = own(header);
    }

    void add(const QStringList& cells, qint64 line, const QStringList& reasons) {
        if (!file_.isOpen()) {
            if (!file_.open(QIODevice::WriteOnly))
                fail();
            file_.write(csvMark);
            write(QStringList{QString::fromUtf16(reasonColumn), QString::fromUtf16(lineColumn)} + header_);
        }
        write(QStringList{reasons.join(u"; "_s), QString::number(line)} + own(cells));
    }

    /// The path of the file, empty when no row was refused.
    QString finish() {
        if (!file_.isOpen())
            return {};
        if (!file_.commit())
            fail();
        return file_.fileName();
    }

  private:
    /// The cells without those that an earlier run has added.
    QStringList own(QStringList cells) const {
        for (auto place = columns_.ownColumns().rbegin(); place != columns_.ownColumns().rend(); ++place)
            if (*place < cells.size())
                cells.removeAt(*place);
        return cells;
    }
    void write(const QStringList& cells) {
        const QByteArray record = CsvRecord(cells, separator_).toUtf8();
        if (file_.write(record) != record.size())
            fail();
    }
    [[noreturn]] void fail() {
        const QString path = file_.fileName();
        file_.cancelWriting();
        throw RuntimeError(
            errorNumber::PathRefused,
            u"A lista das linhas recusadas não pôde ser gravada em %1: %2"_s.arg(path, WhyNotWritten(path)));
    }

    const Columns& columns_;
    QChar separator_;
    QStringList header_;
    QSaveFile file_;
};

/// The rows of a table that has been looked through once.
qint64 CountRows(const QString& path) {
    QFile file(path);
    OpenTable(file);
    CsvReader reader(file);
    if (!reader.next())
        throw RuntimeError(errorNumber::TypeMismatch, u"O arquivo %1 está vazio"_s.arg(path));
    qint64 rows = 0;
    while (reader.next())
        ++rows;
    return rows;
}

class Run {
  public:
    Run(const Order& order, Summary& summary, const Progress& progress)
        : order_(order), summary_(summary), progress_(progress), total_(CountRows(order.file)), file_(order.file) {
        OpenTable(file_);
        reader_.emplace(file_);
        reader_->next();
        columns_.emplace(reader_->cells(),
                         order.names.isEmpty() ? std::map<QString, QString>() : ReadNames(order.names));
        refused_.emplace(order.file, *columns_, reader_->cells(), reader_->separator());
    }

    void all() {
        bool more = true;
        while (more) {
            // A failure that comes of a person's data ends its register; the next person gets another one.
            Importer importer(order_.home, order_.launchString, order_.trial);
            importer.open([&] {
                while (importer.isReady() && (more = reader_->next()))
                    take(importer);
            });
        }
        summary_.refusedFile = refused_->finish();
    }

  private:
    void take(Importer& importer) {
        if (progress_)
            progress_(u"Pessoas"_s, ++done_, total_);
        const QStringList reasons = enter(importer);
        if (reasons.isEmpty())
            return;
        ++summary_.refused;
        refused_->add(reader_->cells(), reader_->line(), reasons);
    }

    QStringList enter(Importer& importer) {
        PersonRow row;
        try {
            row = columns_->row(reader_->cells());
        } catch (const RuntimeError& fault) {
            return {fault.description()};
        }
        const KnownPersons::Answer answer = known_.ask(importer.context(), row, reader_->line());
        if (!answer.conflict.isEmpty())
            return {answer.conflict};
        if (answer.known) {
            ++summary_.known;
            return {};
        }
        const QStringList reasons = importer.enter(row);
        if (reasons.isEmpty())
            ++summary_.entered;
        return reasons;
    }

    const Order& order_;
    Summary& summary_;
    const Progress& progress_;
    qint64 total_;
    qint64 done_ = 0;
    QFile file_;
    std::optional<CsvReader> reader_;
    std::optional<Columns> columns_;
    std::optional<RefusedRows> refused_;
    KnownPersons known_;
};

} // namespace

void ImportPersons(const Order& order, Summary& summary, const Progress& progress) {
    Run(order, summary, progress).all();
}

} // namespace vorta::importer
