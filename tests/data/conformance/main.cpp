#include "data/conformance/Contexts.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int count, char** arguments) {
    QCoreApplication application(count, arguments);
    // Not the home of whoever runs the tests: the engine's root goes with the run.
    const QTemporaryDir home;
    qputenv("VORTA_HOME", home.path().toUtf8());
    testing::InitGoogleTest(&count, arguments);
    testing::AddGlobalTestEnvironment(new vorta::test::Afterwards);
    return RUN_ALL_TESTS();
}
