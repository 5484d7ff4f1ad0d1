#include "import/FieldChecks.h"

#include "import/Formats.h"
#include "import/ImportFixture.h"
#include "import/LineFields.h"

#include "Printers.h"
#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;
using prueba::Cambios;
using prueba::Empresa;

namespace {

QString CodigoDe(const QString& linea, const QString& periodo = u"202610"_s,
                 const FormatoImportacion& formato = FormatoPercepciones()) {
    static const prueba::Escenario escenario;
    QStringList campos;
    SeparaCampos(linea, formato.Campos(), campos);
    LineaComprobada comprobada;
    ContextoImportacion contexto{u"20990518018"_s, periodo, QDate(2026, 11, 21), {}};
    if (formato.tipos)
        contexto.ventas = formato.tipos(*escenario.base);
    return CompruebaLinea(formato.comprobaciones, campos, contexto, comprobada).codigo;
}

struct Caso {
    const char* nombre;
    Cambios cambios;
    QString codigo; // empty: accepted
    QString periodo = u"202610"_s;
};

void Prueba(const QList<Caso>& casos) {
    for (const Caso& caso : casos)
        EXPECT_EQ(CodigoDe(prueba::LineaDe(caso.cambios), caso.periodo), caso.codigo) << caso.nombre;
}

/// Moves a line to another month and day; its question of the sale is answered as the period asks.
Cambios Del(const QString& fecha, const QString& venta, const Cambios& mas = {}) {
    Cambios cambios{{Campo::FechaEmision, fecha},
                    {Campo::FechaCp, u"01/01/2005"_s},
                    {Campo::SerieCp, u"1"_s},
                    {Campo::RespuestaVenta, venta}};
    cambios.insert(mas);
    return cambios;
}

Cambios SinCredito(const Cambios& mas) {
    Cambios cambios{{Campo::CreditoFiscal, u"0"_s}, {Campo::TipoCp, u"03"_s}};
    cambios.insert(mas);
    return cambios;
}

Cambios NotaDeCredito(const QString& monto) {
    return {{Campo::TipoCp, u"07"_s}, {Campo::MontoCp, monto}};
}

const QString kCifras = QString(60, u'9');

TEST(FieldChecks, Client) {
    using enum Campo;
    Prueba({
        {"a good person", {}, {}},
        {"a good company", Empresa(), {}},
        {"type of three characters", {{TipoDoc, u"001"_s}}, u"0888"_s},
        {"type not in the list", {{TipoDoc, u"05"_s}}, u"0009"_s},
        {"empty type, found in any list", {{TipoDoc, u""_s}}, {}},
        {"piece across a dash", {{TipoDoc, u"1-"_s}}, {}},
        {"the same, read as a type 1", {{TipoDoc, u"1-"_s}, {NumDoc, u"4567890"_s}}, u"0010"_s},
        {"RUC of the declarant", Empresa({{NumDoc, u"20990518018"_s}}), u"0221"_s},
        {"RUC with a wrong check digit", Empresa({{NumDoc, u"20500000007"_s}}), u"0001"_s},
        {"RUC too short", Empresa({{NumDoc, u"2050000000"_s}}), u"0001"_s},
        {"RUC of many digits", Empresa({{NumDoc, kCifras}}), u"0001"_s},
        {"DNI of seven", {{NumDoc, u"4567890"_s}}, u"0010"_s},
        {"DNI of nine", {{NumDoc, u"456789012"_s}}, u"0010"_s},
        {"DNI of zeros", {{NumDoc, u"00000000"_s}}, u"0010"_s},
        {"passport with letters", {{TipoDoc, u"7"_s}, {NumDoc, u"AB1234567890"_s}}, {}},
        {"passport of thirteen", {{TipoDoc, u"7"_s}, {NumDoc, u"AB12345678901"_s}}, u"0010"_s},
        {"passport zero", {{TipoDoc, u"7"_s}, {NumDoc, u"0"_s}}, u"0010"_s},
        {"passport of many digits", {{TipoDoc, u"7"_s}, {NumDoc, kCifras}}, u"0010"_s},
        {"no number, of a type without a length", {{TipoDoc, u"4"_s}, {NumDoc, {}}}, {}},
        {"company name of a person", {{RazonSocial, u"Acme"_s}}, u"0992"_s},
        {"company without a name", Empresa({{RazonSocial, u"  "_s}}), u"0003"_s},
        {"company with a strange character", Empresa({{RazonSocial, u"Acme = Acme"_s}}), u"0239"_s},
        {"company with an enye", Empresa({{RazonSocial, u"Año Ñandú"_s}}), {}},
        {"company with a surname", Empresa({{ApellidoPaterno, u"Quispe"_s}}), u"0993"_s},
        {"company with a second surname", Empresa({{ApellidoMaterno, u"Quispe"_s}}), u"0993"_s},
        {"company with first names", Empresa({{Nombres, u"Maria"_s}}), u"0993"_s},
        {"RUC of a person is no company", Empresa({{NumDoc, u"10400000005"_s}}), u"0992"_s},
        {"no surname", {{ApellidoPaterno, {}}}, u"0853"_s},
        {"surname of twenty", {{ApellidoPaterno, QString(20, u'A')}}, {}},
        {"surname of thirty", {{ApellidoPaterno, QString(30, u'A')}}, u"0889"_s},
        {"surname with a tab", {{ApellidoPaterno, u"A\tB"_s}}, u"0239"_s},
        {"no second surname", {{ApellidoMaterno, {}}}, {}},
        {"second surname of thirty", {{ApellidoMaterno, QString(30, u'A')}}, u"0889"_s},
        {"second surname with a strange character", {{ApellidoMaterno, u"A?"_s}}, u"0239"_s},
        {"no first names", {{Nombres, {}}}, u"0855"_s},
        {"first names of thirty, cut", {{Nombres, QString(30, u'A')}}, {}},
        {"first names strange only where cut", {{Nombres, QString(20, u'A') + u'?'}}, {}},
        {"first names with a strange character", {{Nombres, u"A?"_s}}, u"0239"_s},
    });
}

TEST(FieldChecks, PerceptionVoucher) {
    using enum Campo;
    Prueba({
        {"series with a letter in front", {{SeriePercepcion, u"E001"_s}}, {}},
        {"no series", {{SeriePercepcion, {}}}, u"0857"_s},
        {"series of five", {{SeriePercepcion, u"00001"_s}}, u"0857"_s},
        {"series with a letter behind", {{SeriePercepcion, u"E00A"_s}}, u"0857"_s},
        {"series with a sign", {{SeriePercepcion, u"-1"_s}}, u"0857"_s},
        {"series with a control code in front", {{SeriePercepcion, u"\b001"_s}}, u"0857"_s},
        {"no number", {{NumeroPercepcion, {}}}, u"0858"_s},
        {"number of nine", {{NumeroPercepcion, u"123456789"_s}}, u"0858"_s},
        {"number zero", {{NumeroPercepcion, u"0"_s}}, u"0858"_s},
        {"number with a letter", {{NumeroPercepcion, u"12A"_s}}, u"0858"_s},
        {"number of many digits", {{NumeroPercepcion, kCifras}}, u"0858"_s},
        {"short year", {{FechaEmision, u"15/10/26"_s}}, u"0859"_s},
        {"no such day", {{FechaEmision, u"31/09/2026"_s}}, u"0859"_s},
        {"before the limits", {{FechaEmision, u"31/12/1849"_s}}, u"0859"_s},
        {"behind the limits", {{FechaEmision, u"02/01/2500"_s}}, u"0859"_s},
        {"at the limit, but after today", {{FechaEmision, u"01/01/2500"_s}}, u"0989"_s},
        {"tomorrow, though of another month too", {{FechaEmision, u"22/11/2026"_s}}, u"0989"_s},
        {"of another month", {{FechaEmision, u"30/09/2026"_s}}, u"0991"_s},
        {"letter before 19 July 2010", Del(u"18/07/2010"_s, u"0"_s, {{SeriePercepcion, u"E001"_s}}), u"0857"_s,
         u"201007"_s},
        {"letter from that day on", Del(u"19/07/2010"_s, u"0"_s, {{SeriePercepcion, u"E001"_s}}), {}, u"201007"_s},
        {"no answer on credit", {{CreditoFiscal, {}}}, u"0875"_s},
        {"an answer of 9 on credit", {{CreditoFiscal, u"9"_s}}, u"0875"_s},
        {"no answer on the sale", {{RespuestaVenta, {}}}, u"0870"_s},
        {"an answer before it was asked", Del(u"15/02/2008"_s, u"0"_s), u"0869"_s, u"200802"_s},
        {"none before it was asked", Del(u"15/02/2008"_s, u""_s), {}, u"200802"_s},
        {"the first period that asks", Del(u"15/03/2008"_s, u""_s), u"0870"_s, u"200803"_s},
        {"a word for the list", {{ListaClientes, u"SI"_s}}, u"0873"_s},
        {"no amount", {{MontoCobrado, {}}}, u"0996"_s},
        {"amount zero", {{MontoCobrado, u"0.00"_s}}, u"0884"_s},
        {"amount below zero", {{MontoCobrado, u"-5"_s}}, u"0884"_s},
        {"amount that is none", {{MontoCobrado, u"abc"_s}}, u"0884"_s},
        {"amount in parentheses", {{MontoCobrado, u"(300)"_s}}, u"0884"_s},
        {"amount with a comma", {{MontoCobrado, u"1,000"_s}}, u"0885"_s},
        {"amount with an exponent", {{MontoCobrado, u"1E3"_s}}, u"0885"_s},
        {"amount with a plus", {{MontoCobrado, u"+5"_s}}, u"0885"_s},
        {"amount with two points", {{MontoCobrado, u"1.2.3"_s}}, u"0886"_s},
        {"thirteen whole digits", {{MontoCobrado, u"1234567890123"_s}}, u"0887"_s},
        {"thirteen before the point", {{MontoCobrado, u"1234567890123.5"_s}}, u"0887"_s},
        {"very many digits", {{MontoCobrado, kCifras}}, u"0887"_s},
        {"very many decimals", {{MontoCobrado, u"1."_s + kCifras}}, u"0878"_s},
        {"sixteen characters", {{MontoCobrado, u"123456789012.345"_s}}, u"0878"_s},
        {"the largest amount", {{MontoCobrado, u"999999999999.99"_s}}, {}},
        {"an amount without whole digits", {{MontoCobrado, u".5"_s}}, {}},
    });
}

TEST(FieldChecks, PaymentVoucher) {
    using enum Campo;
    Prueba({
        {"no type", {{TipoCp, {}}}, u"0883"_s},
        {"type not in the list", {{TipoCp, u"02"_s}}, u"0883"_s},
        {"type of one digit", {{TipoCp, u"1"_s}}, {}},
        {"type of many digits", {{TipoCp, kCifras}}, u"0883"_s},
        {"piece across a dash", {{TipoCp, u"1-"_s}}, u"0883"_s},
        {"type 03 with credit", {{TipoCp, u"03"_s}}, u"0891"_s},
        {"type 99 with credit", {{TipoCp, u"99"_s}}, u"0891"_s},
        {"type 12 with credit", {{TipoCp, u"12"_s}, {SerieCp, u"1"_s}}, {}},
        {"type 01 without credit", SinCredito({{TipoCp, u"01"_s}}), u"0883"_s},
        {"type 03 without credit", SinCredito({}), {}},
        {"no series", {{SerieCp, {}}}, u"0892"_s},
        {"series zero", {{SerieCp, u"000"_s}}, u"0892"_s},
        {"series of five", {{SerieCp, u"F0001"_s}}, u"0892"_s},
        {"series with a letter behind", {{SerieCp, u"F00A"_s}}, u"0892"_s},
        {"no number", {{NumeroCp, {}}}, u"0858"_s},
        {"number of nine", {{NumeroCp, u"123456789"_s}}, u"0858"_s},
        {"number zero", {{NumeroCp, u"000"_s}}, u"0858"_s},
        {"number of fifteen, of type 99",
         SinCredito({{TipoCp, u"99"_s}, {SerieCp, u"1"_s}, {NumeroCp, u"123456789012345"_s}}),
         {}},
        {"number of sixteen, of type 99",
         SinCredito({{TipoCp, u"99"_s}, {SerieCp, u"1"_s}, {NumeroCp, u"1234567890123456"_s}}), u"0858"_s},
        {"no date", {{FechaCp, {}}}, u"0859"_s},
        {"tomorrow", {{FechaCp, u"22/11/2026"_s}}, u"0990"_s},
        {"after the period, not after today", {{FechaCp, u"01/11/2026"_s}}, u"0868"_s},
        {"letter before 19 July 2010", {{FechaCp, u"18/07/2010"_s}}, u"0892"_s},
        {"letter from that day on", {{FechaCp, u"19/07/2010"_s}}, {}},
        {"letter of a type without letters", {{TipoCp, u"12"_s}}, u"0892"_s},
        {"type 03 of a sale answered with yes", SinCredito({{RespuestaVenta, u"1"_s}}), u"0892"_s},
        {"the same before 19 July 2010",
         SinCredito({{RespuestaVenta, u"1"_s}, {SerieCp, u"1"_s}, {FechaCp, u"18/07/2010"_s}}),
         {}},
        {"no amount", {{MontoCp, {}}}, u"0984"_s},
        {"amount zero", {{MontoCp, u"0"_s}}, u"0988"_s},
        {"amount below zero", {{MontoCp, u"-100"_s}}, u"0988"_s},
        {"the same of a credit note", NotaDeCredito(u"-100"_s), u"0988"_s},
        {"amount with a unit", {{MontoCp, u"5 KG"_s}}, u"0987"_s},
        {"amount with two points", {{MontoCp, u"1..2"_s}}, u"0986"_s},
        {"thirteen whole digits", {{MontoCp, u"1234567890123"_s}}, u"0985"_s},
        {"thirteen before the point", {{MontoCp, u"1234567890123.5"_s}}, u"0985"_s},
        {"sixteen characters", {{MontoCp, u"123456789012.345"_s}}, u"0877"_s},
        {"twelve whole digits of a credit note", NotaDeCredito(u"123456789012"_s), u"0890"_s},
        {"twelve before the point of a credit note", NotaDeCredito(u"123456789012.5"_s), u"0890"_s},
        {"fifteen characters of a credit note", NotaDeCredito(u"12345678901.345"_s), u"0877"_s},
        {"the largest credit note", NotaDeCredito(u"99999999999.99"_s), {}},
    });
}

/// What the catalogue decides, and a series behind the type. The rest is the same function in both formats.
TEST(FieldChecks, CashSale) {
    using enum Campo;
    const QList<Caso> casos = {
        {"a good person", {}, {}},
        {"a good company", Empresa(), {}},
        {"type of three characters", {{TipoDoc, u"001"_s}}, u"0888"_s},
        {"type that the catalogue doesn't offer here", {{TipoDoc, u"3"_s}}, u"0009"_s},
        {"empty type", {{TipoDoc, {}}}, u"0009"_s},
        {"piece across a dash", {{TipoDoc, u"1-"_s}}, u"0009"_s},
        {"RUC of the declarant", Empresa({{NumDoc, u"20990518018"_s}}), u"0221"_s},
        {"RUC with a wrong check digit", Empresa({{NumDoc, u"20500000007"_s}}), u"0001"_s},
        {"DNI of seven", {{NumDoc, u"4567890"_s}}, u"0010"_s},
        {"DNI of nine", {{NumDoc, u"456789012"_s}}, u"0010"_s},
        {"DNI of zeros", {{NumDoc, u"00000000"_s}}, u"0010"_s},
        {"passport with letters", {{TipoDoc, u"7"_s}, {NumDoc, u"AB12"_s}}, {}},
        {"passport of thirteen", {{TipoDoc, u"7"_s}, {NumDoc, u"AB12345678901"_s}}, u"0010"_s},
        {"passport with a sign", {{TipoDoc, u"7"_s}, {NumDoc, u"AB-12"_s}}, u"0010"_s},
        {"no number", {{TipoDoc, u"7"_s}, {NumDoc, {}}}, u"0010"_s},
        {"letters of a type of digits", {{TipoDoc, u"4"_s}, {NumDoc, u"12A"_s}}, u"0010"_s},
        {"a field of both formats", {{MontoCobrado, u"1.2.3"_s}}, u"0886"_s},
        {"no type of voucher", {{TipoCp, {}}}, u"0883"_s},
        {"type of one digit", {{TipoCp, u"1"_s}}, {}},
        {"type that the catalogue lacks", {{TipoCp, u"99"_s}}, u"0883"_s},
        {"type that it doesn't offer here", {{TipoCp, u"02"_s}}, u"0883"_s},
        {"credit note, though offered", {{TipoCp, u"07"_s}}, u"0883"_s},
        {"type 03 with credit", {{TipoCp, u"03"_s}}, u"0883"_s},
        {"type 01 without credit", SinCredito({{TipoCp, u"01"_s}}), u"0883"_s},
        {"type 03 without credit", SinCredito({}), {}},
        {"letter in front of a type that may have it", {{SeriePercepcion, u"B001"_s}}, {}},
        {"letter in front of one that may not", {{SeriePercepcion, u"B001"_s}, {TipoCp, u"12"_s}}, u"0857"_s},
        {"no letter", {{TipoCp, u"12"_s}}, {}},
    };
    for (const Caso& caso : casos)
        EXPECT_EQ(CodigoDe(prueba::VentaDe(caso.cambios), caso.periodo, FormatoVentas()), caso.codigo) << caso.nombre;
}

TEST(FieldChecks, AShortLineIsRefusedWhenWhatItHasPasses) {
    EXPECT_EQ(CodigoDe(u"1|45678901||Quispe|"_s), u"0201"_s);
    EXPECT_EQ(CodigoDe(u"1|4567890||Quispe|"_s), u"0010"_s);
}

} // namespace
