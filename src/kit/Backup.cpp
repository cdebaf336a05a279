#include "kit/Copies.h"

#include "base/RuntimeError.h"
#include "firebird/Services.h"
#include "kit/Bases.h"
#include "kit/FaultWords.h"
#include "system/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>

namespace vorta::kit {

namespace {

/// Where an installation notes its copies: a line for each base, its name, the time and the file.
QString notesOf(const QString& home) {
    return Layout(home).bases() + u"copias.ini"_s;
}

[[noreturn]] void refuseFile(const QString& file) {
    throw RuntimeError(errorNumber::PathRefused, u"Não foi possível gravar %1: %2"_s.arg(file, WhyNotWritten(file)));
}

/// The date of a copy that cannot be noted is no reason to lose the copy; `check` will tell of an older one.
void noteCopy(const QString& home, const QString& base, const QString& file) {
    QStringList notes = LinesOf(notesOf(home)).value_or(QStringList());
    notes.removeIf([&](const QString& note) { return note.isEmpty() || note.startsWith(base + u'^'); });
    notes << u"%1^%2^%3"_s.arg(base, QDateTime::currentDateTimeUtc().toString(Qt::ISODate), file);
    QSaveFile saved(notesOf(home));
    if (!saved.open(QIODevice::WriteOnly))
        return;
    saved.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup);
    saved.write(notes.join(u'\n').toUtf8() + '\n');
    saved.commit();
}

} // namespace

qint64 BackUpBase(const QString& home, const QString& base, const QString& given, const Progress& progress) {
    const QString file = QFileInfo(given).absoluteFilePath();
    const NamedBase named = FindBase(home, base);
    if (QFileInfo::exists(file))
        throw RuntimeError(errorNumber::FileAlreadyExists,
                           u"%1 já existe; escolha outro nome para a cópia"_s.arg(file));
    QTemporaryFile partial(file + u".XXXXXX.parcial"_s); // made for its owner alone
    if (!partial.open())
        refuseFile(file);
    firebird::BackUp(firebird::ReadConnectionText(named.connection), [&](QByteArrayView bytes) {
        if (partial.write(bytes.data(), bytes.size()) != bytes.size())
            refuseFile(file);
        if (progress)
            progress(u"bytes copiados"_s, partial.size(), 0);
    });
    if (!partial.flush() || !system::SyncFile(partial.handle()))
        refuseFile(file);
    const qint64 size = partial.size();
    if (!partial.rename(file)) // never over a file that came meanwhile
        refuseFile(file);
    partial.setAutoRemove(false);
    noteCopy(home, base, file);
    return size;
}

std::optional<Copy> LastCopy(const QString& home, const QString& base) {
    for (const QString& note : LinesOf(notesOf(home)).value_or(QStringList())) {
        const QStringList fields = note.split(u'^');
        const QDateTime when = QDateTime::fromString(fields.value(1), Qt::ISODate);
        if (fields.front() == base && when.isValid())
            return Copy{when, fields.sliced(2).join(u'^')};
    }
    return std::nullopt;
}

} // namespace vorta::kit
