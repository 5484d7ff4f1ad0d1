#pragma once

#include "import/FileSurvey.h"
#include "import/Formats.h"
#include "import/LineFields.h"
#include "values/Decimal.h"
#include "values/Text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace xa518::fuzz {

/// What the catalogue says, without a base.
[[nodiscard]] inline TiposDeVenta Tipos() {
    using namespace Qt::StringLiterals;
    TiposDeVenta tipos;
    tipos.documentos.insert(u"01"_s, TipoDocumento{CodigoDocumento(1), u"DNI"_s, u"08"_s, u"0"_s, u"1"_s});
    tipos.documentos.insert(u"06"_s, TipoDocumento{CodigoDocumento(6), u"RUC"_s, u"11"_s, u"0"_s, u"1"_s});
    tipos.documentos.insert(u"07"_s, TipoDocumento{CodigoDocumento(7), u"PASAPORTE"_s, u"12"_s, u"5"_s, u"0"_s});
    tipos.documentos[u"11"_s].reset(); // known to the import, not to the catalogue
    tipos.comprobantes = {u"01"_s, u"03"_s, u"07"_s, u"08"_s, u"12"_s, u"99"_s};
    return tipos;
}

inline void Exige(bool condicion) {
    if (!condicion)
        std::abort();
}

/// What the tables and the sums rely on once a line has passed.
inline void ExigeAceptada(const LineaComprobada& linea) {
    Exige(linea[Campo::NumDoc].size() <= 12);
    Exige(linea[Campo::RazonSocial].size() <= 40 && linea[Campo::Nombres].size() <= 20);
    Exige(linea[Campo::SeriePercepcion].size() == 4 && linea[Campo::NumeroPercepcion].size() == 8);
    Exige(linea[Campo::FechaEmision].size() == 10);
    const Decimal monto = Decimal::Valor(linea[Campo::MontoCobrado]);
    Exige(monto.Signo() > 0);
    (void)Importe::De(monto * Decimal::Valor(u"0.0600000")); // raises when it doesn't fit
}

/// Checks one line as the period and the encoding that its first byte picks have it.
inline int Comprueba(const FormatoImportacion& formato, const uint8_t* bytes, size_t largo) {
    using namespace Qt::StringLiterals;
    static constexpr Periodo kPeriodos[] = {Periodo(2005, 3), Periodo(2008, 2), Periodo(2010, 7), Periodo(2026, 10)};
    static const TiposDeVenta kTipos = Tipos();
    if (largo == 0)
        return 0;
    const QByteArrayView linea(bytes + 1, static_cast<qsizetype>(largo) - 1);
    const bool latino = (*bytes & 4) != 0 || !EsUtf8Valido(linea);
    const ContextoImportacion contexto{Ruc(u"20990518018"), kPeriodos[*bytes & 3], QDate(2026, 11, 21), kTipos};
    QStringList campos;
    SeparaCampos(Decodifica(linea, latino ? Codificacion::Windows1252 : Codificacion::Utf8), formato.Campos(), campos);
    Exige(campos.size() <= formato.Campos());
    LineaComprobada comprobada;
    const Refutacion refutacion = CompruebaLinea(formato.comprobaciones, campos, contexto, comprobada);
    Exige(!refutacion || refutacion.codigo.size() == 4);
    if (!refutacion)
        ExigeAceptada(comprobada);
    return 0;
}

} // namespace xa518::fuzz
