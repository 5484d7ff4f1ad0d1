#include "import/FieldChecks.h"

#include "import/Formats.h"
#include "import/ImportFixture.h"
#include "import/LineFields.h"

namespace {

using enum Campo;

QString CodigoDe(const QString& linea, const QString& periodo = u"202610"_s,
                 const FormatoImportacion& formato = FormatoPercepciones()) {
    static const Escenario escenario;
    QStringList campos;
    SeparaCampos(linea, formato.Campos(), campos);
    LineaComprobada comprobada;
    ContextoImportacion contexto{Ruc(u"20990518018"), *Periodo::DeTabla(periodo), QDate(2026, 11, 21), {}};
    if (formato.tipos)
        contexto.ventas = formato.tipos(*escenario.base);
    return CompruebaLinea(formato.comprobaciones, campos, contexto, comprobada).codigo;
}

/// What becomes of one field's values, as "0888:001~:1|6": "001" is refused with that code, "1" and "6" are accepted.
struct Caso {
    Campo campo;
    QString finales;
    Cambios demas = {};
    QString periodo = u"202610"_s;
};

void Prueba(const QList<Caso>& casos, const FormatoImportacion& formato = FormatoPercepciones()) {
    for (const auto& [campo, finales, demas, periodo] : casos) {
        for (const QString& final : finales.split(u'~')) {
            const QString codigo = final.section(u':', 0, 0);
            for (const QString& valor : final.section(u':', 1).split(u'|')) {
                Cambios cambios = demas;
                cambios[campo] = valor;
                const QString linea = formato.tipos ? VentaDe(cambios) : LineaDe(cambios);
                EXPECT_EQ(CodigoDe(linea, periodo, formato), codigo) << linea.toStdString();
            }
        }
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
        {TipoDoc, u"0888:001~0009:05~:1||1-"_s}, // empty is found in any list, and so is a piece across a dash
        {TipoDoc, u"0010:1-"_s, {{NumDoc, u"4567890"_s}}}, // which is read as a type 1
        {NumDoc, u"0221:20990518018~0992:10400000005~0001:20500000007|2050000000|"_s + kCifras, Empresa()},
        {NumDoc, u"0010:4567890|456789012|00000000"_s},
        {NumDoc, u":AB1234567890~0010:AB12345678901|0|"_s + kCifras, kPasaporte},
        {NumDoc, u":"_s, {{TipoDoc, u"4"_s}}}, // a type without a length
        {RazonSocial, u"0992:Acme"_s},
        {RazonSocial, u":Año Ñandú~0003:  ~0239:Acme = Acme"_s, Empresa()},
        {ApellidoPaterno, u"0993:Quispe"_s, Empresa()},
        {ApellidoMaterno, u"0993:Rojas"_s, Empresa()},
        {Nombres, u"0993:Maria"_s, Empresa()},
        {ApellidoPaterno, u"0853:~0239:A\tB~:"_s + QString(20, u'A') + u"~0889:"_s + QString(21, u'A')},
        {ApellidoMaterno, u":~0239:A?~0889:"_s + QString(21, u'A')},
        {Nombres, u"0855:~0239:A?~:"_s + QString(20, u'A') + u'?'}, // cut before they are looked at
    });
}

TEST(FieldChecks, PerceptionVoucher) {
    const Cambios conLetra{{SeriePercepcion, u"E001"_s}, {RespuestaVenta, u"0"_s}};
    Prueba({
        {SeriePercepcion, u":E001~0857:|00001|E00A|-1|\b001"_s},
        {NumeroPercepcion, u"0858:|123456789|0|12A|"_s + kCifras},
        {FechaEmision, u"0859:|15/10/26|31/09/2026|31/12/1849|02/01/2500~0991:30/09/2026"_s},
        {FechaEmision, u"0989:01/01/2500|22/11/2026"_s}, // before its month is looked at
        {FechaEmision, u"0857:18/07/2010~:19/07/2010"_s, Del({}, conLetra), u"201007"_s},
        {CreditoFiscal, u"0875:|9"_s},
        {RespuestaVenta, u"0869:0~:"_s, Del(u"15/02/2008"_s), u"200802"_s},
        {RespuestaVenta, u"0870:"_s, Del(u"15/03/2008"_s), u"200803"_s},
        {ListaClientes, u"0873:SI|"_s},
        {MontoCobrado, u"0996:~0884:0.00|-5|abc|(300)~0885:1,000|1E3|+5~0886:1.2.3~:999999999999.99|.5"_s},
        {MontoCobrado, u"0887:1234567890123|1234567890123.5|"_s + kCifras},
        {MontoCobrado, u"0878:123456789012.345|1."_s + kCifras},
    });
}

TEST(FieldChecks, PaymentVoucher) {
    Prueba({
        {TipoCp, u"0891:03|99~:1~0883:|02|1-|"_s + kCifras},
        {TipoCp, u":12"_s, {{SerieCp, u"1"_s}}},
        {TipoCp, u"0883:01~:03"_s, SinCredito()},
        {SerieCp, u"0892:|000|F0001|F00A"_s},
        {SerieCp, u"0892:F001"_s, {{TipoCp, u"12"_s}}}, // a type without letters
        {SerieCp, u"0892:F001"_s, SinCredito({{RespuestaVenta, u"1"_s}})},
        {NumeroCp, u"0858:|123456789|000"_s},
        {NumeroCp, u":123456789012345~0858:1234567890123456"_s, kTipo99},
        {FechaCp, u"0859:~0990:22/11/2026~0892:18/07/2010~:19/07/2010"_s},
        {FechaCp, u"0868:01/11/2026"_s}, // after the period, not after today
        {FechaCp, u":18/07/2010"_s, SinCredito({{RespuestaVenta, u"1"_s}, {SerieCp, u"1"_s}})},
        {MontoCp, u"0984:~0988:0|-100~0987:5 KG~0986:1..2~0985:1234567890123|1234567890123.5~0877:123456789012.345"_s},
        {MontoCp, u"0988:-100~0890:123456789012|123456789012.5~0877:12345678901.345~:99999999999.99"_s, kNotaDeCredito},
    });
}

/// What the catalogue decides, and a series behind the type. The rest is the same function in both formats.
TEST(FieldChecks, CashSale) {
    Prueba(
        {
            {TipoDoc, u"0888:001~0009:3||1-"_s}, // the catalogue doesn't offer the first one here
            {NumDoc, u":20500000008~0221:20990518018~0001:20500000007"_s, Empresa()},
            {NumDoc, u"0010:4567890|456789012|00000000"_s},
            {NumDoc, u":AB12~0010:AB12345678901|AB-12|"_s, kPasaporte},
            {NumDoc, u"0010:12A"_s, {{TipoDoc, u"4"_s}}}, // a type of digits
            {TipoCp, u"0883:|99|02|03~:1|12"_s},
            {TipoCp, u"0883:01|07~:03"_s, SinCredito()}, // a credit note isn't taken, though it is offered
            {SeriePercepcion, u":B001"_s},
            {SeriePercepcion, u"0857:B001"_s, {{TipoCp, u"12"_s}}},
        },
        FormatoVentas());
}

TEST(FieldChecks, AShortLineIsRefusedWhenWhatItHasPasses) {
    EXPECT_EQ(CodigoDe(u"1|45678901||Quispe|"_s), u"0201"_s);
    EXPECT_EQ(CodigoDe(u"1|4567890||Quispe|"_s), u"0010"_s);
}

} // namespace
