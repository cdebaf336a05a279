#include "base/RuntimeError.h"
#include "data/Connection.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "firebird/Peer.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace vorta;

namespace {

int actAsPeer(const QString& connectionString, bool cutOff) {
    try {
        data::Connection connection([](data::Engine) { return data::MakeFirebirdAdapter(); });
        connection.Open(data::Engine::Firebird, connectionString);
        connection.Execute(data::Statement("insert into logr (nome) values ('DO OUTRO PROGRAMA')"));
        if (cutOff) {
            std::atexit([] { errno = EINTR; }); // in front of everything else that the end of a process does
            std::exit(0);
        }
        return 0;
    } catch (const RuntimeError& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}

} // namespace

int main(int count, char** arguments) {
    QCoreApplication application(count, arguments);
    const QStringList words = application.arguments();
    if (words.size() == 4 && (words[1] == test::peerWord || words[1] == test::peerCutOffWord)) {
        firebird::PrepareEmbeddedEngine(words[2]);
        return actAsPeer(words[3], words[1] == test::peerCutOffWord);
    }
    // Not the home of whoever runs the tests: the engine's root goes with the run.
    const QTemporaryDir home;
    qputenv("VORTA_HOME", home.path().toUtf8());
    firebird::PrepareEmbeddedEngine(home.path()); // bases come and go with the tests, the lock place stays
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
