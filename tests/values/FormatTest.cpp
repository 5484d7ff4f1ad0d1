#include "values/Format.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <QFile>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

QStringList Celdas(const QByteArray& linea) {
    QStringList celdas = QString::fromUtf8(linea).trimmed().split(u'|');
    celdas = celdas.mid(1, celdas.size() - 2);
    for (QString& celda : celdas)
        celda = celda.trimmed();
    return celdas;
}

/// A mask of every kind that the system's texts use, against every kind of input. The file's first row names the
/// inputs.
TEST(Format, GivesTheTableOfMasks) {
    QFile archivo(QStringLiteral(XA518_FORMAT_TABLE));
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    const QStringList entradas = Celdas(archivo.readLine());
    while (!archivo.atEnd()) {
        const QStringList fila = Celdas(archivo.readLine());
        ASSERT_EQ(fila.size(), entradas.size());
        for (qsizetype i = 1; i < fila.size(); ++i)
            EXPECT_EQ(Format(entradas[i], fila[0]), fila[i])
                << "Format(" << entradas[i].toStdString() << ", " << fila[0].toStdString() << ")";
    }
}

TEST(Format, RoundsSignsAndRefusesBeyondTheTable) {
    const struct {
        QString texto, mascara, esperado;
    } casos[] = {
        {u"1.005"_s, u"##0.#0"_s, u"1.01"_s}, // on the digits as written, where a binary number would give 1.00
        {u"999.995"_s, u"##0.#0"_s, u"1000.00"_s},
        {u"999999.5"_s, u"#,###,###,##0"_s, u"1,000,000"_s},
        {u"-0.4"_s, u"###########0"_s, u"0"_s},
        {u"-0.004"_s, u"###,###,###,##0.00;(###,###,###,##0.00)"_s, u"0.00"_s},
        {u"0.4"_s, u"############"_s, u""_s},
        {u" 5 "_s, u"00"_s, u"05"_s},
        {u"(1,234.5)"_s, u"###########0.#0"_s, u"-1234.50"_s},
        {u"1,23"_s, u"#0"_s, u"1,23"_s},
        {u"1E3"_s, u"#0"_s, u"1E3"_s},
        {u" "_s, u"#0"_s, u" "_s},
        {u"03/06/2024"_s, u"dd/mm/yyyy"_s, u"03/06/2024"_s},
    };
    for (const auto& [texto, mascara, esperado] : casos)
        EXPECT_EQ(Format(texto, mascara), esperado) << qPrintable(texto);
}

} // namespace
} // namespace xa518
