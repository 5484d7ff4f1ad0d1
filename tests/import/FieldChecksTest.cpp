#include "import/FieldChecks.h"

#include "import/ErrorTexts.h"
#include "import/Formats.h"
#include "import/ImportFixture.h"
#include "import/LineFields.h"

using namespace xa518;
using namespace xa518::prueba;
using namespace Qt::StringLiterals;

namespace {

using enum Campo;

/// What these say stands in table `ERROR`; the words of the others are the import's own.
const QString kConTextoDeTabla = u"0001 0003 0009 0010 0221 0239 0853 0855 0857 0859 0868"_s;

QString CodigoDe(const QString& linea, const QString& periodo = u"202610"_s,
                 const FormatoImportacion& formato = FormatoPercepciones()) {
    static const Escenario escenario;
    QStringList campos;
    SeparaCampos(linea, formato.Campos(), campos);
    LineaComprobada comprobada;
    ContextoImportacion contexto{u"20990518018"_s, periodo, QDate(2026, 11, 21), {}};
    if (formato.tipos)
        contexto.ventas = formato.tipos(*escenario.base);
    return CompruebaLinea(formato.comprobaciones, campos, contexto, comprobada).codigo;
}

/// Values of one field that end alike.
struct Caso {
    QString codigo; // empty: accepted
    Campo campo;
    QString valores; // a line for each, with bars between them
    Cambios demas = {};
    QString periodo = u"202610"_s;
};

void Prueba(const QList<Caso>& casos, const FormatoImportacion& formato = FormatoPercepciones()) {
    for (const Caso& caso : casos) {
        for (const QString& valor : caso.valores.split(u'|')) {
            Cambios cambios = caso.demas;
            cambios[caso.campo] = valor;
            const QString linea = formato.tipos ? VentaDe(cambios) : LineaDe(cambios);
            EXPECT_EQ(CodigoDe(linea, caso.periodo, formato), caso.codigo) << linea.toStdString();
        }
        EXPECT_EQ(TextoFijo(QLatin1StringView(caso.codigo.toLatin1())).isEmpty(),
                  kConTextoDeTabla.contains(caso.codigo));
    }
}

/// Moves a line to another month and day, of which the series needn't have letters.
Cambios Del(const QString& fecha, const Cambios& mas = {}) {
    Cambios cambios{{FechaEmision, fecha}, {FechaCp, u"01/01/2005"_s}, {SerieCp, u"1"_s}};
    cambios.insert(mas);
    return cambios;
}

Cambios SinCredito(const Cambios& mas = {}) {
    Cambios cambios{{CreditoFiscal, u"0"_s}, {TipoCp, u"03"_s}};
    cambios.insert(mas);
    return cambios;
}

const QString kCifras = QString(60, u'9');
const Cambios kPasaporte{{TipoDoc, u"7"_s}};
const Cambios kNotaDeCredito{{TipoCp, u"07"_s}};
const Cambios kTipo99 = SinCredito({{TipoCp, u"99"_s}, {SerieCp, u"1"_s}});

TEST(FieldChecks, Client) {
    Prueba({
        {u"0888"_s, TipoDoc, u"001"_s},
        {u"0009"_s, TipoDoc, u"05"_s},
        {{}, TipoDoc, u"1||1-"_s}, // empty is found in any list, and so is a piece across a dash
        {u"0010"_s, TipoDoc, u"1-"_s, {{NumDoc, u"4567890"_s}}}, // which is read as a type 1
        {{}, NumDoc, u"20500000008"_s, Empresa()},
        {u"0221"_s, NumDoc, u"20990518018"_s, Empresa()}, // the declarant's
        {u"0001"_s, NumDoc, u"20500000007|2050000000|"_s + kCifras, Empresa()},
        {u"0992"_s, NumDoc, u"10400000005"_s, Empresa()}, // a person's
        {u"0010"_s, NumDoc, u"4567890|456789012|00000000"_s},
        {{}, NumDoc, u"AB1234567890"_s, kPasaporte},
        {u"0010"_s, NumDoc, u"AB12345678901|0|"_s + kCifras, kPasaporte},
        {{}, NumDoc, {}, {{TipoDoc, u"4"_s}}}, // a type without a length
        {u"0992"_s, RazonSocial, u"Acme"_s},
        {{}, RazonSocial, u"Año Ñandú"_s, Empresa()},
        {u"0003"_s, RazonSocial, u"  "_s, Empresa()},
        {u"0239"_s, RazonSocial, u"Acme = Acme"_s, Empresa()},
        {u"0993"_s, ApellidoPaterno, u"Quispe"_s, Empresa()},
        {u"0993"_s, ApellidoMaterno, u"Rojas"_s, Empresa()},
        {u"0993"_s, Nombres, u"Maria"_s, Empresa()},
        {u"0853"_s, ApellidoPaterno, {}},
        {{}, ApellidoPaterno, QString(20, u'A')},
        {u"0889"_s, ApellidoPaterno, QString(30, u'A')},
        {u"0239"_s, ApellidoPaterno, u"A\tB"_s},
        {{}, ApellidoMaterno, {}},
        {u"0889"_s, ApellidoMaterno, QString(30, u'A')},
        {u"0239"_s, ApellidoMaterno, u"A?"_s},
        {u"0855"_s, Nombres, {}},
        {{}, Nombres, QString(30, u'A') + u'|' + QString(20, u'A') + u'?'}, // cut before they are looked at
        {u"0239"_s, Nombres, u"A?"_s},
    });
}

TEST(FieldChecks, PerceptionVoucher) {
    const Cambios conLetra{{SeriePercepcion, u"E001"_s}, {RespuestaVenta, u"0"_s}};
    Prueba({
        {{}, SeriePercepcion, u"E001"_s},
        {u"0857"_s, SeriePercepcion, u"|00001|E00A|-1|\b001"_s},
        {u"0858"_s, NumeroPercepcion, u"|123456789|0|12A|"_s + kCifras},
        {u"0859"_s, FechaEmision, u"|15/10/26|31/09/2026|31/12/1849|02/01/2500"_s},
        {u"0989"_s, FechaEmision, u"01/01/2500|22/11/2026"_s}, // before its month is looked at
        {u"0991"_s, FechaEmision, u"30/09/2026"_s},
        {u"0857"_s, FechaEmision, u"18/07/2010"_s, Del({}, conLetra), u"201007"_s},
        {{}, FechaEmision, u"19/07/2010"_s, Del({}, conLetra), u"201007"_s},
        {u"0875"_s, CreditoFiscal, u"|9"_s},
        {u"0869"_s, RespuestaVenta, u"0"_s, Del(u"15/02/2008"_s), u"200802"_s},
        {{}, RespuestaVenta, {}, Del(u"15/02/2008"_s), u"200802"_s},
        {u"0870"_s, RespuestaVenta, {}, Del(u"15/03/2008"_s), u"200803"_s},
        {u"0873"_s, ListaClientes, u"SI|"_s},
        {u"0996"_s, MontoCobrado, {}},
        {u"0884"_s, MontoCobrado, u"0.00|-5|abc|(300)"_s},
        {u"0885"_s, MontoCobrado, u"1,000|1E3|+5"_s},
        {u"0886"_s, MontoCobrado, u"1.2.3"_s},
        {u"0887"_s, MontoCobrado, u"1234567890123|1234567890123.5|"_s + kCifras},
        {u"0878"_s, MontoCobrado, u"123456789012.345|1."_s + kCifras},
        {{}, MontoCobrado, u"999999999999.99|.5"_s},
    });
}

TEST(FieldChecks, PaymentVoucher) {
    Prueba({
        {u"0883"_s, TipoCp, u"|02|1-|"_s + kCifras},
        {{}, TipoCp, u"1"_s},
        {u"0891"_s, TipoCp, u"03|99"_s},
        {{}, TipoCp, u"12"_s, {{SerieCp, u"1"_s}}},
        {u"0883"_s, TipoCp, u"01"_s, SinCredito()},
        {{}, TipoCp, u"03"_s, SinCredito()},
        {u"0892"_s, SerieCp, u"|000|F0001|F00A"_s},
        {u"0892"_s, SerieCp, u"F001"_s, {{TipoCp, u"12"_s}}}, // a type without letters
        {u"0858"_s, NumeroCp, u"|123456789|000"_s},
        {{}, NumeroCp, u"123456789012345"_s, kTipo99},
        {u"0858"_s, NumeroCp, u"1234567890123456"_s, kTipo99},
        {u"0859"_s, FechaCp, {}},
        {u"0990"_s, FechaCp, u"22/11/2026"_s},
        {u"0868"_s, FechaCp, u"01/11/2026"_s}, // after the period, not after today
        {u"0892"_s, FechaCp, u"18/07/2010"_s},
        {{}, FechaCp, u"19/07/2010"_s},
        {u"0892"_s, SerieCp, u"F001"_s, SinCredito({{RespuestaVenta, u"1"_s}})},
        {{}, FechaCp, u"18/07/2010"_s, SinCredito({{RespuestaVenta, u"1"_s}, {SerieCp, u"1"_s}})},
        {u"0984"_s, MontoCp, {}},
        {u"0988"_s, MontoCp, u"0|-100"_s},
        {u"0988"_s, MontoCp, u"-100"_s, kNotaDeCredito},
        {u"0987"_s, MontoCp, u"5 KG"_s},
        {u"0986"_s, MontoCp, u"1..2"_s},
        {u"0985"_s, MontoCp, u"1234567890123|1234567890123.5"_s},
        {u"0877"_s, MontoCp, u"123456789012.345"_s},
        {u"0890"_s, MontoCp, u"123456789012|123456789012.5"_s, kNotaDeCredito},
        {u"0877"_s, MontoCp, u"12345678901.345"_s, kNotaDeCredito},
        {{}, MontoCp, u"99999999999.99"_s, kNotaDeCredito},
    });
}

/// What the catalogue decides, and a series behind the type. The rest is the same function in both formats.
TEST(FieldChecks, CashSale) {
    Prueba(
        {
            {u"0888"_s, TipoDoc, u"001"_s},
            {u"0009"_s, TipoDoc, u"3||1-"_s}, // the catalogue doesn't offer the first one here
            {{}, NumDoc, u"20500000008"_s, Empresa()},
            {u"0221"_s, NumDoc, u"20990518018"_s, Empresa()},
            {u"0001"_s, NumDoc, u"20500000007"_s, Empresa()},
            {u"0010"_s, NumDoc, u"4567890|456789012|00000000"_s},
            {{}, NumDoc, u"AB12"_s, kPasaporte},
            {u"0010"_s, NumDoc, u"AB12345678901|AB-12|"_s, kPasaporte},
            {u"0010"_s, NumDoc, u"12A"_s, {{TipoDoc, u"4"_s}}}, // a type of digits
            {u"0883"_s, TipoCp, u"|99|02|07|03"_s},             // a credit note isn't taken, though it is offered
            {{}, TipoCp, u"1|12"_s},
            {u"0883"_s, TipoCp, u"01"_s, SinCredito()},
            {{}, TipoCp, u"03"_s, SinCredito()},
            {{}, SeriePercepcion, u"B001"_s},
            {u"0857"_s, SeriePercepcion, u"B001"_s, {{TipoCp, u"12"_s}}},
        },
        FormatoVentas());
}

TEST(FieldChecks, AShortLineIsRefusedWhenWhatItHasPasses) {
    EXPECT_EQ(CodigoDe(u"1|45678901||Quispe|"_s), u"0201"_s);
    EXPECT_EQ(CodigoDe(u"1|4567890||Quispe|"_s), u"0010"_s);
}

} // namespace
