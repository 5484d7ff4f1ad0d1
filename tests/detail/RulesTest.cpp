#include "data/DocumentTypes.h"
#include "detail/ClientLayout.h"
#include "detail/PerceptionRate.h"
#include "detail/VoucherChecks.h"
#include "detail/VoucherTypes.h"

#include "support/TemporaryBase.h"
#include "values/Error.h"

namespace {

const QDate kHoy(2026, 10, 20);

/// What it says, with "! " before a mere warning.
QString Texto(const std::optional<VeredictoComprobante>& veredicto) {
    if (!veredicto || *veredicto)
        return veredicto ? u"bien"_s : u"callado"_s;
    return (veredicto->Motivo().icono == Icono::Exclamacion ? u"! "_s : QString()) + veredicto->Motivo().texto;
}

TEST(VoucherChecks, SeriesByDateOfIssue) {
    const QString noNumerico = u"El número de serie debe ser numérico"_s;
    const QString primera = u"sólo se permite letras o dígitos en la primera posición del número de serie"_s;
    const QString incompleta = u"! Debe registrar correctamente el número de serie."_s;
    const QString letras = u"! No se permite letras desde la segunda a la cuarta posición en el número de serie."_s;
    const QString noValido = u"El número de serie del comprobante de pago no es válido"_s;
    const auto fechaBuena = [] { return VeredictoComprobante(Veredicto::Bien()); };
    const struct {
        QString fecha, serie;
        QString percepcion; // what is said of it as the series of a perception voucher
        QString factura;    // and as that of an invoice
    } casos[] = {
        {u"18/07/2010"_s, u"E001"_s, noNumerico, u"bien"_s},
        {u"18/07/2010"_s, u"0A01"_s, u"bien"_s, u"bien"_s},
        {u"18/07/2010"_s, u"0-01"_s, u"bien"_s, noValido},
        {u"19/07/2010"_s, u"E001"_s, u"bien"_s, u"bien"_s},
        {u"19/07/2010"_s, u"EE01"_s, letras, letras},
        {u"19/07/2010"_s, u"000A"_s, letras, letras},
        {u"19/07/2010"_s, u"E0"_s, incompleta, noValido},
        {u"19/07/2010"_s, u"A12"_s, incompleta, noValido},
        {u"19/07/2010"_s, u"-001"_s, u"! Desde el 2010/07/19"_s + primera, noValido},
    };
    for (const auto& [fecha, serie, percepcion, factura] : casos) {
        const DatosComprobante cp{false, {}, serie, u"1"_s, fecha, u"5"_s, false, {}};
        EXPECT_EQ(Texto(ValidaGrabar(cp, Periodo(2010, 7), kHoy)), percepcion) << qPrintable(serie);
        const DatosPago pago{u"01"_s, serie, u"1"_s, fecha, u"5"_s};
        EXPECT_EQ(Texto(ValidaGrabar(pago, fechaBuena)), factura) << qPrintable(serie);
    }
    const DatosPago ticket{u"12"_s, u"-001"_s, u"1"_s, u"19/07/2010"_s, u"5"_s};
    EXPECT_EQ(Texto(ValidaGrabar(ticket, fechaBuena)), u"! Desde el 2010/07/19 "_s + primera);
}

TEST(ClientLayout, ReadsTheRulesOfATypeBackFromItsItem) {
    const QString item = ItemDe({CodigoDocumento(4), u"CARNE EXT. "_s, u"12"_s, u"5"_s, u"0"_s});
    EXPECT_EQ(item, u"04  -  "_s + u"CARNE EXT. "_s.leftJustified(60) + u"12 5 0"_s);
    EXPECT_EQ(ReglaDe(item).limite, 12);
    EXPECT_TRUE(ReglaDe(item).soloDigitos);
}

TEST(VoucherChecks, AmountsOfPaymentVouchers) {
    EXPECT_EQ(LimitaMontoDePago(u"07", u"100000000000"_s), u"99999999999.99"_s);
    EXPECT_EQ(MontoEnGrilla(u"-1100.5"_s), u"(1,100.50)"_s);
    EXPECT_EQ(MontoEnGrilla(u"0.00"_s), u"(0.00)"_s);
}

TEST(VoucherChecks, TypesOffered) {
    const BaseTemporal base;
    for (const QString& codigo : {u"01"_s, u"02"_s, u"03"_s, u"07"_s, u"08"_s, u"12"_s, u"99"_s})
        base.Param(u"233"_s, codigo, Funcion({{1, u"TIPO"_s}, {64, codigo == u"02" ? u"0"_s : u"1"_s}}));
    const auto codigos = [](const QStringList& items) {
        QStringList lista;
        for (const QString& item : items)
            lista += CodigoDeItem(item) + DescripcionDeItem(item);
        return lista.join(u' ').remove(u"TIPO"_s);
    };
    EXPECT_EQ(codigos(TiposDeContado(*base)), u"01 03 08 12 99"_s);
    EXPECT_EQ(codigos(TiposDePago(*base, u"1"_s)), u"01 07 08 12"_s);
    EXPECT_EQ(codigos(TiposDePago(*base, u"2"_s)), u"01 07 08 12"_s);
    EXPECT_EQ(codigos(TiposDePago(*base, u"3"_s)), u"03 07 08 12 99"_s);
}

constexpr Contestacion kSi = true;
constexpr Contestacion kNo = false;
constexpr Contestacion kSinRespuesta = std::nullopt;

TEST(PerceptionRate, ClassOfEachBandAndAnswer) {
    const struct {
        Banda banda;
        Respuestas respuestas; // credit, list, zone, means
        QString clase;
    } casos[] = {
        {Banda::A, {kSi, kSi, kSinRespuesta, kSinRespuesta}, u"1"_s},
        {Banda::A, {kSi, kNo, kSinRespuesta, kSinRespuesta}, u"2"_s},
        {Banda::A, {kNo, kSinRespuesta, kSinRespuesta, kSinRespuesta}, u"2"_s},
        {Banda::B, {kSi, kSi, kSi, kSinRespuesta}, u"1"_s},
        {Banda::B, {kSi, kNo, kSi, kSinRespuesta}, u"6"_s},
        {Banda::B, {kSi, kSi, kNo, kSinRespuesta}, u"1"_s},
        {Banda::B, {kSi, kNo, kNo, kSinRespuesta}, u"2"_s},
        {Banda::B, {kSi, kSi, kSinRespuesta, kSinRespuesta}, {}},
        {Banda::B, {kNo, kSi, kSi, kSinRespuesta}, u"6"_s},
        {Banda::B, {kNo, kSi, kNo, kSinRespuesta}, u"2"_s},
        {Banda::C, {kSi, kSi, kSinRespuesta, kSi}, u"3"_s},
        {Banda::C, {kSi, kSi, kSinRespuesta, kNo}, u"4"_s},
        {Banda::C, {kSi, kSi, kSinRespuesta, kSinRespuesta}, {}}, // the hidden question
        {Banda::C, {kSi, kNo, kSinRespuesta, kSinRespuesta}, u"4"_s},
        {Banda::C, {kNo, kSinRespuesta, kSinRespuesta, kSinRespuesta}, u"5"_s},
        {Banda::C, {kSinRespuesta, kSi, kSi, kSi}, {}},
    };
    for (size_t i = 0; i < std::size(casos); ++i)
        EXPECT_EQ(ClaseTasa(casos[i].banda, casos[i].respuestas), casos[i].clase) << "row " << i;
}

TEST(PerceptionRate, RoundsTwice) {
    EXPECT_EQ(Percepcion(u"100.25"_s, {u"0.02"_s, {}}), u"2.01"_s);
    EXPECT_EQ(Percepcion(u"10.10"_s, {u"0.00505"_s, {}}), u"0.05"_s);
    EXPECT_EQ(Percepcion(u"1.23"_s, {u"0.00405"_s, {}}), u"0.01"_s);
    EXPECT_EQ(Percepcion({}, {u"0.02"_s, {}}), u" "_s);
    EXPECT_EQ(Percepcion(u"100"_s, {u"0.02 or so"_s, {}}), u"2.00"_s);
    EXPECT_THROW((void)Percepcion(u"999999999999.99"_s, {u"99999999"_s, {}}), Desbordamiento);
    EXPECT_EQ(LimitaMonto(u"1000000000000"_s), u"999999999999.99"_s);
}

TEST(PerceptionRate, SalesTaxIsTheLatestStartNotAfterThePeriod) {
    const BaseTemporal base;
    base.Param(u"998"_s, u"0101010200501"_s, u" 19.00 "_s);
    base.Param(u"998"_s, u"0101010201103"_s, u" 18    "_s);
    const auto igv = [&](Periodo periodo) { return IniIgv(*base, u"010101"_s, u"998"_s, periodo); };
    EXPECT_EQ(igv(Periodo(2011, 2)), u"19"_s);
    EXPECT_EQ(igv(Periodo(2011, 3)), u"18"_s);
    EXPECT_EQ(igv(Periodo(2004, 12)), QString());
}

TEST(PerceptionRate, TypeLabelTellsCreditAndRange) {
    EXPECT_EQ(LblTipo(Periodo(2026, 10), Periodo(2099, 12), kSi), u"1"_s);
    EXPECT_EQ(LblTipo(Periodo(2026, 10), Periodo(2010, 12), kSi), u"2"_s);
    EXPECT_EQ(LblTipo(Periodo(2026, 10), Periodo(2099, 12), kSinRespuesta), u"3"_s);
}

} // namespace
