#include "import/ImportRate.h"

#include "import/ImportFixture.h"

#include "Printers.h"
#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

/// The fixture's rows bear the number of their class as rate.
QString ClaseDe(prueba::Escenario& escenario, const QString& periodo, const QString& primerIgv,
                const QString& respuestas) {
    TasaImportacion tasa(*escenario.proceso.baseDatos, periodo, primerIgv);
    const auto respuesta = [&](qsizetype cual) { return respuestas.mid(cual, 1); };
    return tasa.NuevaTasa(respuesta(0), respuesta(1), respuesta(2), respuesta(3)).tasa.left(1);
}

TEST(ImportRate, ClassOfEachBandAndAnswer) {
    struct Caso {
        QString periodo;
        QString primerIgv;
        QString respuestas; // credit, sale, list, amount
        QString clase;
    };
    const QString igv = u"201012"_s;
    const QList<Caso> casos = {
        {u"200501"_s, igv, u"1011"_s, u"1"_s}, {u"200802"_s, igv, u"1000"_s, u"2"_s},
        {u"200802"_s, igv, u"0010"_s, u"2"_s}, {u"200803"_s, igv, u"1110"_s, u"1"_s},
        {u"200803"_s, igv, u"1100"_s, u"6"_s}, {u"201012"_s, igv, u"1010"_s, u"1"_s},
        {u"201012"_s, igv, u"1000"_s, u"2"_s}, {u"201012"_s, igv, u"0110"_s, u"6"_s},
        {u"201012"_s, igv, u"0010"_s, u"2"_s}, {u"201101"_s, igv, u"1011"_s, u"3"_s},
        {u"201101"_s, igv, u"1012"_s, u"4"_s}, {u"201101"_s, igv, u"1001"_s, u"4"_s},
        {u"201101"_s, igv, u"0111"_s, u"5"_s}, {u"200803"_s, {}, u"1100"_s, u"4"_s},
        {u"200412"_s, igv, u"1010"_s, u"0"_s},
    };
    prueba::Escenario escenario;
    for (const Caso& caso : casos)
        EXPECT_EQ(ClaseDe(escenario, caso.periodo, caso.primerIgv, caso.respuestas), caso.clase)
            << caso.periodo.toStdString() << ' ' << caso.respuestas.toStdString();
}

} // namespace
