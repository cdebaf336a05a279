#include <QCoreApplication>
#include <gtest/gtest.h>

int main(int count, char** arguments) {
    QCoreApplication application(count, arguments);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
