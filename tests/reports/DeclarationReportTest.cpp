#include "reports/ReportFixture.h"
#include "reports/RunReport.h"

#include <algorithm>

#include <gmock/gmock.h>

#include "Printers.h"

using namespace xa518;
using namespace xa518::prueba;
using namespace Qt::StringLiterals;
using testing::Contains;
using testing::Not;

namespace {

class DeclarationReport : public testing::Test {
  protected:
    void Imprime() { taller.Imprime(false, libreta); }

    /// The y at which a text stands; -1 when the page lacks it.
    int AlturaDe(const QString& texto, int pagina) const {
        const auto puesto = std::ranges::find_if(libreta.comandos, [&](const Comando& comando) {
            const auto* linea = std::get_if<TextoEnPagina>(&comando);
            return linea != nullptr && linea->pagina == pagina && linea->texto == texto;
        });
        return puesto == libreta.comandos.end() ? -1 : std::get<TextoEnPagina>(*puesto).y;
    }

    Taller taller;
    Libreta libreta;
};

} // namespace

TEST_F(DeclarationReport, WithoutClientsIsOnePageWithTheDebtAtItsPlace) {
    taller.Cabecera({{u"401"_s, u"1000"_s}, {u"402"_s, u"-300"_s}, {u"800"_s, u"7"_s}});
    Imprime();
    EXPECT_EQ(libreta.Hojas(), 1);
    EXPECT_EQ(AlturaDe(u"DETERMINACION DE LA DEUDA TRIBUTARIA"_s, 0), 2300 + 570);
    EXPECT_EQ(libreta.TextoEn(9220, 2300 + 570 + 2 * 270), u"           1,000"_s);
    EXPECT_EQ(libreta.TextoEn(9220, 2300 + 570 + 3 * 270), u"           (300)"_s);
    EXPECT_EQ(libreta.TextoEn(9220, 2300 + 570 + 4 * 270), QString(16, u' ')) << "a missing box is empty, not 0";
    EXPECT_THAT(libreta.Textos(0), Contains(u"Contribuyente (1/1)"_s));
    EXPECT_THAT(libreta.Textos(0), Not(Contains(u"NRO. CONTROL: "_s)));
}

TEST_F(DeclarationReport, TurnsThePageAfterTheTwentiethClient) {
    const struct {
        int clientes, paginas, filasEnLaUltima;
        QString montos;
    } casos[] = {{1, 1, 1, u"100"_s}, {20, 2, 0, u"2,000"_s}, {21, 2, 1, u"2,100"_s}, {45, 3, 5, u"4,500"_s}};
    for (const auto& [clientes, paginas, filas, montos] : casos) {
        taller.Vacia();
        taller.Cabecera({{u"501"_s, QString::number(clientes)}});
        taller.Clientes(clientes);
        Imprime();
        EXPECT_EQ(libreta.Hojas(), paginas) << clientes;
        const int ultima = paginas - 1;
        const int total = 1970 + 80 + (2 + filas) * 270;
        EXPECT_EQ(AlturaDe(u"TOTAL"_s, ultima), total) << clientes;
        EXPECT_EQ(AlturaDe(u"DETERMINACION DE LA DEUDA TRIBUTARIA"_s, ultima), total - 80 + 600 + 570);
        EXPECT_EQ(libreta.TextoEn(7000, total, ultima).trimmed(), montos);
        EXPECT_THAT(libreta.Textos(ultima), Contains(u"Contribuyente (%1/%1)"_s.arg(paginas)));
    }
}

TEST_F(DeclarationReport, ListsCompaniesAndPersonsByNumber) {
    taller.Cabecera({{u"501"_s, u"4"_s}});
    const QString razon = u"CORPORACIÓN AGROINDUSTRIAL DE LA SELVA CENTRAL S.A.A."_s;
    taller.Agrega(Cliente{6, u"20512345671"_s, razon, {}, {}, {}, u"-1234.5"_s, u"2469135.79"_s});
    taller.Agrega(Cliente{1, u"40512345"_s, u"  "_s, u"NÚÑEZ"_s, {}, u"ANA|LUZ"_s});
    taller.Agrega(Cliente{7, u"X40512345678901"_s, u"VIAJERO"_s}); // a type that reports don't show
    Imprime();
    const int fila = 1970 + 80 + 2 * 270;
    EXPECT_EQ(libreta.TextoEn(300, fila), u"RUC 20512345671"_s);
    EXPECT_EQ(libreta.TextoEn(2900, fila), u"CORPORACIÓN AGROINDUSTRIAL DE LA SELVA C"_s);
    EXPECT_EQ(libreta.TextoEn(7000, fila), u"         -1,234.50"_s);
    EXPECT_EQ(libreta.TextoEn(9070, fila), u"      2,469,135.79"_s);
    EXPECT_EQ(libreta.TextoEn(300, fila + 270), u"DNI 40512345"_s);
    EXPECT_EQ(libreta.TextoEn(2900, fila + 270), u"NÚÑEZ , ANA|LUZ"_s);
    EXPECT_EQ(libreta.TextoEn(300, fila + 540), u"X40512345678901"_s);
    EXPECT_EQ(libreta.TextoEn(7000, fila + 810), u"            -1,035"_s) << "totals drop their decimals";
}

/// Of the head's columns by name: at the place of `rectifica` a sent copy keeps another one.
TEST_F(DeclarationReport, MarksRectificationAndPayment) {
    const struct {
        bool enviada;
        QString rectifica, cheque;
        int xRectifica, xPago;
    } casos[] = {
        {false, u"1"_s, {}, 6600, 6600}, {false, u"0"_s, u" 00123 "_s, 8825, 8825}, {true, u"0"_s, {}, 8825, 6600}};
    for (const auto& [enviada, rectifica, cheque, xRectifica, xPago] : casos) {
        taller.Vacia();
        taller.clave.enviada = enviada;
        taller.clave.correl = u"1"_s;
        taller.Cabecera({}, cheque, rectifica);
        Imprime();
        const int fila = 2300 + 570 + 8 * 270;
        for (const int x : {6600, 8825}) {
            EXPECT_EQ(libreta.TextoEn(x, fila), x == xRectifica ? u" X "_s : QString());
            EXPECT_EQ(libreta.TextoEn(x, fila + 270), x == xPago ? u" X "_s : QString());
        }
        EXPECT_EQ(libreta.TextoEn(9380, fila + 540), cheque.trimmed());
        EXPECT_EQ(libreta.TextoEn(8825, fila + 810), cheque.isEmpty() ? QString() : u"015"_s);
        EXPECT_EQ(libreta.TextoEn(9200, fila + 810), cheque.isEmpty() ? QString() : u"02"_s);
    }
}

TEST_F(DeclarationReport, HasNoAnnexWithoutClients) {
    for (const QString& clientes : {QString(), u"0"_s, u"-1"_s, u"ninguno"_s}) {
        taller.Vacia();
        taller.Cabecera({{u"501"_s, clientes}});
        const InformesEmitidos sinAnexo = ImprimeDeclaracion(taller.proceso, taller.clave, true);
        EXPECT_EQ(sinAnexo.rutas.size(), 1);
        EXPECT_FALSE(sinAnexo.veredicto) << qPrintable(clientes);
    }
}
