// What a result keeps of the heap, which the C library of one system tells.

#include "base/Literals.h"
#include "data/Recordset.h"

#include "support/FakeDatabase.h"

#include <gtest/gtest.h>
#include <malloc.h>

namespace vorta::data {

TEST(RecordsetMemory, RowsWalkedOverAreGivenBack) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer keeps the heap's books itself";
#endif
    const QString wide(1000, u'x');
    test::FakeRows prepared{{"n", "t"}, {}};
    for (int i = 0; i < 5000; ++i)
        prepared.rows.push_back({test::number(i), Value(wide)});
    const auto allocated = [] {
        const struct mallinfo2 heap = mallinfo2();
        return heap.uordblks + heap.hblkhd;
    };
    test::FakeDatabase database;
    Connection connection{database.factory()};
    connection.Open(Engine::Firebird, {});
    database.answer(u"select"_s, std::move(prepared));
    Recordset rows;
    rows.Open(Statement("select"), connection);
    const std::size_t full = allocated();
    while (!rows.Eof())
        rows.MoveNext();
    EXPECT_GE(full - allocated(), 4900U * 1000);
    EXPECT_EQ(rows.RecordCount(), 5000);
}

} // namespace vorta::data
