#include "declaration/Boxes.h"

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

TEST(Boxes, ArithmeticFollowsEveryChange) {
    const struct {
        QString c401, c402, c404, c403, c405;
    } casos[] = {
        {u"1,000"_s, u"(300)"_s, u"50"_s, u"700"_s, u"750"_s}, // shown in parentheses, subtracted all the same
        {u"100"_s, u"300"_s, {}, u"0"_s, u"0"_s},              // no credit
        {u"0"_s, {}, {}, u"0"_s, u"0"_s},                      // a typed 0 isn't empty
        {{}, {}, u"7"_s, {}, u"7"_s},
        {u"999,999,999,999"_s, u"1"_s, u"2"_s, u"999,999,999,998"_s, u"1,000,000,000,000"_s},
        {u"10.50"_s, {}, {}, u"11"_s, u"11"_s},
    };
    for (const auto& caso : casos) {
        Montos montos;
        montos.Cambia(401, caso.c401);
        montos.Cambia(402, caso.c402);
        montos.Cambia(404, caso.c404);
        EXPECT_EQ(montos.Texto(403), caso.c403) << caso.c401.toStdString();
        EXPECT_EQ(montos.Texto(405), caso.c405) << caso.c401.toStdString();
        for (const int casilla : {401, 402, 404})
            montos.Cambia(casilla, {});
        EXPECT_EQ(montos.Texto(403) + montos.Texto(405), QString()) << "emptied sources empty the results";
    }
}

} // namespace
