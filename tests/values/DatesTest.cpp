#include "values/Dates.h"

#include "Printers.h"

#include <gtest/gtest.h>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(Dates, AreRealDaysInTenCharacters) {
    const QStringList si = {u"01/01/1850"_s, u"29/02/2024"_s, u"29/02/2000"_s, u"31/12/2500"_s};
    const QStringList no = {u""_s,           u"29/02/2023"_s,  u"29/02/1900"_s, u"31/04/2024"_s,
                            u"00/01/2024"_s, u"01/13/2024"_s,  u"1/1/2024"_s,   u"01-01-2024"_s,
                            u"2024/01/01"_s, u"01/01/24"_s,    u"01/01/0000"_s, u"0a/01/2024"_s,
                            u"+1/01/2024"_s, u"01/01/2024 "_s, u"__/__/____"_s, u"01/ 1/2024"_s};
    for (const QString& texto : si)
        EXPECT_TRUE(EsFecha(texto)) << texto.toStdString();
    for (const QString& texto : no)
        EXPECT_FALSE(EsFecha(texto)) << texto.toStdString();
}

TEST(Dates, PassThroughTheMasks) {
    EXPECT_EQ(FormatFecha(u"03/06/2024", u"dd/mm/yyyy"), u"03/06/2024"_s);
    EXPECT_EQ(FormatFecha(u"03/06/2024", u"yyyymmdd"), u"20240603"_s);
    EXPECT_EQ(FormatFecha(u"03/06/2024", u"yyyy/mm/dd"), u"2024/06/03"_s);
    EXPECT_EQ(FormatFecha(u"31/06/2024", u"yyyymmdd"), u"31/06/2024"_s);
    EXPECT_EQ(FormatFecha(QDate(2024, 6, 3), u"yyyymm"), u"202406"_s);
    EXPECT_EQ(FormatHora(QTime(14, 5, 9)), u"14:05:09"_s);
}

} // namespace
} // namespace xa518
