#include "firebird/ClientLibrary.h"

#include "base/Journal.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "system/ThisSystem.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QStringList>

#include <optional>

namespace vorta::firebird {

namespace {

QStringList places() {
    if (const QString chosen = qEnvironmentVariable("VORTA_FBCLIENT"); !chosen.isEmpty())
        return {chosen};
    QStringList places = system::InstalledClients();
    const QString& fileName = system::ThisSystem().clientLibrary;
    if (const QString beside = QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString();
        !beside.isEmpty() && QFileInfo::exists(beside + u'/' + fileName))
        places.prepend(beside + u'/' + fileName);
    return places;
}

[[noreturn]] void tellMissing(const QStringList& looked) {
    throw RuntimeError(errorNumber::ConnectionFailed,
                       u"A biblioteca do Firebird não foi encontrada ou não pôde ser carregada (%1). Instale o cliente "
                       "do Firebird, ou indique o arquivo na variável VORTA_FBCLIENT"_s.arg(looked.join(u", "_s)));
}

/// Nothing when the file is not there or is no client library; the system's own words for it go to the journal.
std::optional<ClientLibrary> load(const QString& place) {
    QLibrary library(place);
    ClientLibrary found{};
    if (library.load()) {
        found.masterInterface =
            reinterpret_cast<decltype(found.masterInterface)>(library.resolve("fb_get_master_interface"));
        found.sqlState = reinterpret_cast<decltype(found.sqlState)>(library.resolve("fb_sqlstate"));
    }
    if (!found.masterInterface || !found.sqlState) {
        Journal(library.errorString());
        return std::nullopt;
    }
    found.folder = system::FolderOfFunction(reinterpret_cast<const void*>(found.masterInterface));
    return found;
}

ClientLibrary loadFirst() {
    const QStringList looked = places();
    for (const QString& place : looked)
        if (const std::optional<ClientLibrary> found = load(place))
            return *found;
    tellMissing(looked);
}

} // namespace

const ClientLibrary& Client() {
    // Tried again at the next call when it was not there.
    static const ClientLibrary library = loadFirst();
    return library;
}

} // namespace vorta::firebird
