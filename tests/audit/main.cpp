#include "firebird/EmbeddedEngine.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int count, char** arguments) {
    QCoreApplication application(count, arguments);
    const QTemporaryDir home; // the engine's root goes with the run
    vorta::firebird::PrepareEmbeddedEngine(home.path());
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
