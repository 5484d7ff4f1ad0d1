#include "import/Formats.h"

#include "family/Process.h"
#include "import/PerceptionStore.h"
#include "import/SaleStore.h"

#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCamposDeVenta = 14;

/// A field, and what checks it in each of the two formats. Whoever changes a check finds its wording beside it.
struct FilaCampo {
    DescripcionCampo campo;
    Comprobacion percepcion{};
    Comprobacion venta{};
    QStringView formaVenta; ///< what it may hold in a file of cash sales, where that differs
};

constexpr FilaCampo EnAmbos(const DescripcionCampo& campo, Comprobacion comprobacion) {
    return {campo, comprobacion, comprobacion, campo.forma};
}

constexpr FilaCampo EnUno(const DescripcionCampo& campo, Comprobacion percepcion) {
    return {campo, percepcion, nullptr, {}};
}

constexpr QStringView kSi = u"sí";
constexpr QStringView kNo = u"no";
constexpr QStringView kEmpresas = u"empresas";
constexpr QStringView kPersonas = u"personas";
constexpr QStringView kDesdeMarzo2008 = u"desde 03/2008";

/// The fields in file order. The formats differ where a row names two checks, and past the fourteenth field.
constexpr std::array<FilaCampo, kCampos> kTabla{
    FilaCampo{{u"Tipo de documento", kSi, u"1 ó 2 caracteres: 01, 02, 03, 04, 06 ó 07"},
              CompruebaTipoDoc,
              CompruebaTipoDocVenta,
              u"1 ó 2 caracteres: un tipo que el catálogo ofrece para el cliente (tabla 044)"},
    FilaCampo{{u"Número de documento", kSi,
               u"RUC (06): 11 dígitos con su dígito de control, y no el del declarante. DNI (01): 8 caracteres. "
               u"Otros: hasta 12. Nunca cero"},
              CompruebaNumDoc,
              CompruebaNumDocVenta,
              u"RUC (06): 11 dígitos con su dígito de control, y no el del declarante. DNI (01): al menos 8 "
              u"caracteres. Todos, como el catálogo los pide para su tipo (tabla 044). Nunca cero"},
    EnAmbos({u"Razón social", kEmpresas, u"Se corta a 40 caracteres. Vacía si no es empresa (RUC que empieza con 20)"},
            CompruebaRazonSocial),
    EnAmbos({u"Apellido paterno", kPersonas, u"Hasta 20 caracteres. Vacío si es empresa"}, CompruebaApellidoPaterno),
    EnAmbos({u"Apellido materno", kNo, u"Hasta 20 caracteres. Vacío si es empresa"}, CompruebaApellidoMaterno),
    EnAmbos({u"Nombres", kPersonas, u"Se cortan a 20 caracteres. Vacíos si es empresa"}, CompruebaNombres),
    EnAmbos({u"Serie del comprobante de percepción", kSi,
             u"Hasta 4 caracteres, se completa con ceros: dígitos, o una letra y tres dígitos si la fecha de emisión "
             u"es del 19/07/2010 o posterior"},
            CompruebaSeriePercepcion),
    EnAmbos({u"Número del comprobante de percepción", kSi, u"Hasta 8 dígitos, se completa con ceros. Mayor que cero"},
            CompruebaNumeroPercepcion),
    EnAmbos({u"Fecha de emisión", kSi, u"dd/mm/aaaa, dentro del período declarado y no posterior a hoy"},
            CompruebaFechaEmision),
    EnAmbos({u"Da derecho a crédito fiscal", kSi, u"0 no, 1 sí"}, CompruebaCreditoFiscal),
    EnAmbos({u"Venta comprende materiales", kDesdeMarzo2008, u"0 no, 1 sí. Vacío en los períodos anteriores"},
            CompruebaRespuestaVenta),
    EnAmbos({u"Cliente en el listado", kSi, u"0 no, 1 sí"}, CompruebaListaClientes),
    EnAmbos({u"Monto cobrado", kSi,
             u"Mayor que cero, sin signo ni comas. Hasta 12 dígitos enteros y un solo punto decimal; si lo lleva, "
             u"hasta 15 caracteres"},
            CompruebaMontoCobrado),
    FilaCampo{{u"Tipo del comprobante de pago", kSi,
               u"01, 03, 07, 08, 12 ó 99. Con derecho a crédito fiscal, 01, 07, 08 ó 12; sin él, todos menos 01"},
              CompruebaTipoCp,
              CompruebaTipoCpVenta,
              u"Un tipo que el catálogo admite (tabla 233), nunca 07. Con derecho a crédito fiscal, 01, 08 ó 12; sin "
              u"él, todos menos 01. Si no es 01, 03 ni 08, la serie va sin letras"},
    EnUno({u"Serie del comprobante de pago", kSi,
           u"Hasta 4 caracteres, se completa con ceros: dígitos, o una letra y tres dígitos si el tipo es 01, 03, 07 u "
           u"08 y la fecha es del 19/07/2010 o posterior. Nunca cero"},
          CompruebaSerieCp),
    EnUno({u"Número del comprobante de pago", kSi,
           u"Hasta 8 dígitos, 15 si el tipo es 99, se completa con ceros. Mayor que cero"},
          CompruebaNumeroCp),
    EnUno({u"Fecha del comprobante de pago", kSi,
           u"dd/mm/aaaa, no posterior al período ni a hoy. Desde el 19/07/2010 el tipo 03 pide 0 en el campo 11"},
          CompruebaFechaCp),
    EnUno({u"Importe del comprobante de pago", kSi,
           u"Mayor que cero, sin signo ni comas, también en una nota de crédito (07), que se guarda restando. Hasta 12 "
           u"dígitos enteros, 11 en una nota de crédito, y un solo punto decimal; si lo lleva, hasta 15 caracteres, 14 "
           u"en una nota de crédito"},
          CompruebaMontoCp),
};

template <size_t Cuantas>
constexpr std::array<Comprobacion, Cuantas> Columna(Comprobacion FilaCampo::*columna) {
    std::array<Comprobacion, Cuantas> comprobaciones{};
    for (size_t i = 0; i < Cuantas; ++i)
        comprobaciones[i] = kTabla[i].*columna;
    return comprobaciones;
}

constexpr auto kDePercepcion = Columna<kCampos>(&FilaCampo::percepcion);
constexpr auto kDeVenta = Columna<kCamposDeVenta>(&FilaCampo::venta);

constexpr std::array<DescripcionCampo, kCampos> DescribePercepcion() {
    std::array<DescripcionCampo, kCampos> campos{};
    for (size_t i = 0; i < campos.size(); ++i)
        campos[i] = kTabla[i].campo;
    return campos;
}

constexpr std::array<DescripcionCampo, kCamposDeVenta> DescribeVenta() {
    std::array<DescripcionCampo, kCamposDeVenta> campos{};
    for (size_t i = 0; i < campos.size(); ++i)
        campos[i] = {kTabla[i].campo.nombre, kTabla[i].campo.obligatorio, kTabla[i].formaVenta};
    return campos;
}

constexpr auto kCamposDePercepcion = DescribePercepcion();
constexpr auto kCamposDeLaVenta = DescribeVenta();

template <typename Tablas>
std::unique_ptr<Almacen> AbreAlmacen(Base& base, Periodo declarado, Periodo primerIgv) {
    return std::make_unique<Tablas>(base, declarado, primerIgv);
}

} // namespace

const FormatoImportacion& FormatoPercepciones() {
    static constexpr FormatoImportacion kFormato{
        ""_L1,
        kDePercepcion,
        AbreAlmacen<AlmacenPercepciones>,
        nullptr,
        u"Comprobantes de percepción",
        kCamposDePercepcion,
        u"6|20991001370|BODEGAS PEÑA BLANCA E.I.R.L.||||P001|20001|14/10/2026|1|0|0|4719.34|12|0004|61001|12/10/2026|"
        u"4719.34|"};
    return kFormato;
}

const FormatoImportacion& FormatoVentas() {
    static constexpr FormatoImportacion kFormato{"VC"_L1,
                                                 kDeVenta,
                                                 AbreAlmacen<AlmacenVentas>,
                                                 LeeTiposDeVenta,
                                                 u"Ventas al contado",
                                                 kCamposDeLaVenta,
                                                 u"1|45678901||QUISPE|ROJAS|MARÍA|B001|45|15/10/2026|0|0|0|250.00|03|"};
    return kFormato;
}

QString NombreDeCampo(Campo campo) {
    return kTabla[static_cast<size_t>(campo)].campo.nombre.toString();
}

} // namespace xa518
