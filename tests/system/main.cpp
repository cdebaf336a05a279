#include <QCoreApplication>

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

/// What a test starts as a process of its own: "--same TEXT BYTES" ends with 0 when the text is of those bytes,
/// "--sleep" sleeps longer than the test waits.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.value(1) == u"--same")
        return words.value(2).toUtf8().toHex() == words.value(3).toLatin1() ? 0 : 1;
    if (words.value(1) == u"--sleep")
        std::this_thread::sleep_for(std::chrono::seconds(60));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
