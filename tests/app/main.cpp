#include <QCoreApplication>
#include <gtest/gtest.h>

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments); // the ODBC side asks for one, as in the program
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
