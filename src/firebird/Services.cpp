#include "firebird/Services.h"

#include "base/Literals.h"
#include "firebird/Client.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/OpenFailure.h"
#include "system/Endings.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QThread>

#include <array>
#include <optional>
#include <vector>

namespace vorta::firebird {

namespace {

/// Lengths inside an answer are 16 bits wide.
constexpr unsigned answerBytes = 60'000;
constexpr qint64 mostToSend = 32'000;
/// How long one question may wait for the next part of an answer.
constexpr int secondsToWait = 1;
constexpr int secondsForATable = 2;
constexpr unsigned long millisecondsBetween = 2;

class Block {
  public:
    explicit Block(unsigned kind) : builder_(Master().getUtilInterface()->getXpbBuilder(&status_, kind, nullptr, 0)) {}
    Block& tag(unsigned char tag) {
        builder_->insertTag(&status_, tag);
        return *this;
    }
    Block& number(unsigned char tag, int value) {
        builder_->insertInt(&status_, tag, value);
        return *this;
    }
    Block& byte(unsigned char tag, unsigned char value) {
        builder_->insertBytes(&status_, tag, &value, 1);
        return *this;
    }
    Block& text(unsigned char tag, const QString& value) {
        if (!value.isEmpty())
            builder_->insertString(&status_, tag, value.toUtf8().constData());
        return *this;
    }
    unsigned length() { return builder_->getBufferLength(&status_); }
    const unsigned char* data() { return builder_->getBuffer(&status_); }

  private:
    Status status_;
    Owned<Firebird::IXpbBuilder> builder_;
};

constexpr int shortLength = 2, longLength = 4;

QByteArray little(qint64 value, int length) {
    QByteArray bytes;
    for (int i = 0; i < length; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

void addItem(QByteArray& items, unsigned char tag, const QByteArray& value) {
    items += static_cast<char>(tag) + little(value.size(), shortLength) + value;
}

/// An answer of a service taken apart.
struct Answer {
    QByteArray bytes;
    qint64 wanted = 0; ///< what the service reads next from its caller
    bool more = false; ///< there is, or may be, more to come
};

Answer read(const std::vector<unsigned char>& buffer) {
    const auto number = [&](std::size_t at, int length) {
        qint64 value = 0;
        for (int i = 0; i < length; ++i)
            value |= qint64{buffer[at + static_cast<std::size_t>(i)]} << (8 * i);
        return value;
    };
    Answer answer;
    for (std::size_t at = 0; at < buffer.size() && buffer[at] != isc_info_end;) {
        switch (buffer[at++]) {
        case isc_info_svc_line:
        case isc_info_svc_to_eof: {
            const auto length = static_cast<std::size_t>(number(at, shortLength));
            at += shortLength;
            answer.bytes.append(reinterpret_cast<const char*>(&buffer[at]), static_cast<qsizetype>(length));
            at += length;
            break;
        }
        case isc_info_svc_stdin:
            answer.wanted = number(at, longLength);
            at += longLength;
            break;
        case isc_info_truncated:
        case isc_info_data_not_ready:
        case isc_info_svc_timeout:
            answer.more = true;
            break;
        default:
            throw RuntimeError(errorNumber::StatementRefused, u"O motor deu uma resposta desconhecida"_s);
        }
    }
    return answer;
}

/// True when the system refused a write for want of room.
bool IsDiskFull(const Firebird::IStatus& failure) {
    for (const intptr_t* item = failure.getErrors(); item[0] != isc_arg_end; item += item[0] == isc_arg_cstring ? 3 : 2)
        if (item[0] == isc_arg_unix && item[1] == ENOSPC)
            return true;
    return false;
}

/// Does `work`; what has words of its own is told in them.
template <typename Work>
auto told(Work work) {
    try {
        return work();
    } catch (const Firebird::FbException& failure) {
        if (IsDiskFull(*failure.getStatus()))
            throw RuntimeError(errorNumber::DiskFull);
        throw OpenFailureWords(*failure.getStatus()) ? ToOpenError(failure) : ToRuntimeError(failure, {});
    }
}

/// The threads of this process, as the system numbers them; none where it does not tell.
QSet<QString> threads() {
    const QStringList numbers = QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return {numbers.begin(), numbers.end()};
}

/// A service in this process runs on a thread of its own, which outlives its last answer by a moment. A process that
/// ends in this moment takes the engine's modules away from under it, so its end is waited for.
class ServiceThread {
  public:
    void begin() { before_ = threads(); }
    void begun() { own_ = threads() - before_; }
    void await() const {
        for (const QDeadlineTimer patience(std::chrono::seconds{30}); threads().intersects(own_);)
            if (patience.hasExpired())
                return;
            else
                QThread::msleep(millisecondsBetween);
    }

  private:
    QSet<QString> before_, own_;
};

class Service {
  public:
    explicit Service(const ConnectionText& base) : base_(base), guard_(GuardOf(base)) {
        Block block(Firebird::IXpbBuilder::SPB_ATTACH);
        block.text(isc_spb_user_name, base.user)
            .text(isc_spb_password, base.password)
            .text(isc_spb_sql_role_name, base.role)
            .tag(isc_spb_utf8_filename);
        const system::HeldEndings held(base.embedded); // a server may keep one waiting
        Status status;
        const Handle<Firebird::IProvider> provider(Master().getDispatcher());
        service_.reset(provider->attachServiceManager(&status, base.beside(u"service_mgr"_s).toUtf8().constData(),
                                                      block.length(), block.data()));
    }
    ~Service() {
        try {
            Status status;
            EndWith(service_, [&](auto* open) { open->detach(&status); });
        } catch (const Firebird::FbException&) {
            // A service that broke off has let go already.
        }
        thread_.await();
    }
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    void start(Block& block) {
        Status status;
        thread_.begin();
        service_->start(&status, block.length(), block.data());
        thread_.begun();
    }

    /// Asks for the items, giving the service what it reads.
    Answer ask(const std::vector<unsigned char>& items, const std::optional<QByteArray>& input = {}) {
        QByteArray send;
        addItem(send, isc_info_svc_timeout, little(secondsToWait, longLength));
        if (input)
            addItem(send, isc_info_svc_line, *input);
        std::vector<unsigned char> buffer(answerBytes, static_cast<unsigned char>(isc_info_end));
        Status status;
        service_->query(&status, static_cast<unsigned>(send.size()),
                        reinterpret_cast<const unsigned char*>(send.constData()), static_cast<unsigned>(items.size()),
                        items.data(), answerBytes, buffer.data());
        SettleLocks(base_);
        return read(buffer);
    }

    /// What the service writes, part by part to its end.
    void output(const CopySink& sink) {
        for (bool more = true; more;) {
            const Answer answer = ask({isc_info_svc_to_eof});
            if (!answer.bytes.isEmpty())
                sink(answer.bytes);
            more = answer.more || !answer.bytes.isEmpty();
        }
    }

    /// Gives the service what it reads, to its end.
    void input(const CopySource& source) {
        std::optional<QByteArray> next;
        for (bool more = true; more;) {
            const Answer answer = ask({isc_info_svc_stdin, isc_info_svc_line}, std::exchange(next, {}));
            if (answer.wanted > 0)
                next = source(std::min(answer.wanted, mostToSend));
            more = next || answer.more || !answer.bytes.isEmpty();
        }
    }

  private:
    const ConnectionText base_;
    BaseGuard guard_;
    Handle<Firebird::IService> service_;
    ServiceThread thread_;
};

/// Runs a service that only writes a report.
QString reportOf(const ConnectionText& base, Block& block) {
    Service service(base);
    service.start(block);
    QByteArray report;
    service.output([&](QByteArrayView bytes) { report.append(bytes); });
    return QString::fromUtf8(report);
}

/// The report of a full validation is empty, or names numbers of errors of several kinds, one a line.
Validation readSummary(const QString& report) {
    static const QRegularExpression count(u":\\s*(\\d+)\\s*$"_s, QRegularExpression::MultilineOption);
    Validation found;
    for (const QRegularExpressionMatch& match : count.globalMatch(report))
        found.errors += match.captured(1).toLongLong();
    return found;
}

/// The report of a shared validation tells of each table in one line whether it is whole, has errors or was held.
Validation readTables(const QString& report) {
    static const QRegularExpression line(u"Relation \\d+ \\(([^)]+)\\)(.*)"_s);
    static const QRegularExpression count(u"(\\d+) ERRORS"_s);
    Validation found;
    found.shared = true;
    QString begun; // a table whose end is missing broke the validation off
    for (const QRegularExpressionMatch& match : line.globalMatch(report)) {
        const QString table = match.captured(1), told = match.captured(2).trimmed();
        if (told.isEmpty()) {
            if (!begun.isEmpty())
                found.damaged << begun;
            begun = table;
            continue;
        }
        begun.clear();
        if (const QRegularExpressionMatch errors = count.match(told); errors.hasMatch()) {
            found.errors += errors.captured(1).toLongLong();
            found.damaged << table;
        } else if (told != u"is ok"_s && !told.contains(u"warning"_s)) {
            found.skipped << table;
        }
    }
    if (!begun.isEmpty())
        found.damaged << begun;
    found.errors = std::max(found.errors, qint64{found.damaged.size()});
    return found;
}

} // namespace

void BackUp(const ConnectionText& base, const CopySink& sink) {
    told([&] {
        Service service(base);
        Block block(Firebird::IXpbBuilder::SPB_START);
        block.tag(isc_action_svc_backup)
            .text(isc_spb_dbname, base.path)
            .text(isc_spb_bkp_file, u"stdout"_s)
            .number(isc_spb_options, isc_spb_bkp_no_garbage_collect);
        service.start(block);
        service.output(sink);
    });
}

void Restore(const ConnectionText& base, const CopySource& source) {
    told([&] {
        Service service(base);
        Block block(Firebird::IXpbBuilder::SPB_START);
        block.tag(isc_action_svc_restore)
            .text(isc_spb_bkp_file, u"stdin"_s)
            .text(isc_spb_dbname, base.path)
            .number(isc_spb_options, isc_spb_res_create);
        service.start(block);
        service.input(source);
    });
}

Validation ValidateAlone(const ConnectionText& base) {
    return told([&] {
        Block block(Firebird::IXpbBuilder::SPB_START);
        block.tag(isc_action_svc_repair)
            .text(isc_spb_dbname, base.path)
            .number(isc_spb_options, isc_spb_rpr_validate_db | isc_spb_rpr_check_db | isc_spb_rpr_full);
        return readSummary(reportOf(base, block));
    });
}

Validation ValidateShared(const ConnectionText& base) {
    return told([&] {
        Block block(Firebird::IXpbBuilder::SPB_START);
        block.tag(isc_action_svc_validate)
            .text(isc_spb_dbname, base.path)
            .number(isc_spb_val_lock_timeout, secondsForATable);
        return readTables(reportOf(base, block));
    });
}

void ShutDown(const ConnectionText& base) {
    told([&] {
        Block block(Firebird::IXpbBuilder::SPB_START);
        block.tag(isc_action_svc_properties)
            .text(isc_spb_dbname, base.path)
            .byte(isc_spb_prp_shutdown_mode, isc_spb_prp_sm_full)
            .number(isc_spb_prp_attachments_shutdown, 0);
        reportOf(base, block);
    });
}

void Drop(const ConnectionText& base) {
    constexpr int secondsToOpen = 15;
    Attachment attachment = Attach(base.of(base.path), secondsToOpen);
    told([&] {
        Status status;
        EndWith(attachment, [&](auto* open) { open->dropDatabase(&status); });
    });
}

} // namespace vorta::firebird
