#include "base/RuntimeError.h"
#include "base/Literals.h"

#include <gtest/gtest.h>
#include <set>

using namespace vorta;

namespace {

constexpr int numbers[] = {
    errorNumber::Overflow,          errorNumber::OutOfMemory,      errorNumber::TypeMismatch,
    errorNumber::InternalError,     errorNumber::BadFileName,      errorNumber::FileNotFound,
    errorNumber::FileAlreadyExists, errorNumber::PathRefused,      errorNumber::ObjectNotSet,
    errorNumber::InvalidNull,       errorNumber::OutsideGrid,      errorNumber::NoSuchMember,
    errorNumber::NoCurrentRow,      errorNumber::NoSuchColumn,     errorNumber::ObjectClosed,
    errorNumber::ConnectionFailed,  errorNumber::StatementRefused, errorNumber::ConstraintViolated};

} // namespace

TEST(RuntimeError, EveryNumberHasWordsOfItsOwn) {
    std::set<QString> words{RuntimeError(0).description()};
    for (const int number : numbers)
        EXPECT_TRUE(words.insert(RuntimeError(number).description()).second) << number;
}

TEST(RuntimeError, GivenWordsTakeTheirPlace) {
    const RuntimeError error(errorNumber::FileNotFound, u"onde?"_s);
    EXPECT_EQ(error.description(), u"onde?");
    EXPECT_STREQ(error.what(), "53 - onde?");
}
