#include "import/Formats.h"

#include "data/Process.h"
#include "import/PerceptionStore.h"
#include "import/SaleStore.h"

#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCamposDeVenta = 14;

/// A field, and what checks it in each of the two formats.
struct FilaCampo {
    QStringView nombre;
    Comprobacion percepcion{};
    Comprobacion venta{};
};

constexpr FilaCampo EnAmbos(QStringView nombre, Comprobacion comprobacion) {
    return {nombre, comprobacion, comprobacion};
}

constexpr FilaCampo EnUno(QStringView nombre, Comprobacion percepcion) {
    return {nombre, percepcion, nullptr};
}

/// The fields in file order. The formats differ where a row names two checks, and past the fourteenth field.
constexpr std::array<FilaCampo, kCampos> kTabla{
    FilaCampo{u"Tipo de documento", CompruebaTipoDoc, CompruebaTipoDocVenta},
    FilaCampo{u"Número de documento", CompruebaNumDoc, CompruebaNumDocVenta},
    EnAmbos(u"Razón social", CompruebaRazonSocial),
    EnAmbos(u"Apellido paterno", CompruebaApellidoPaterno),
    EnAmbos(u"Apellido materno", CompruebaApellidoMaterno),
    EnAmbos(u"Nombres", CompruebaNombres),
    EnAmbos(u"Serie del comprobante de percepción", CompruebaSeriePercepcion),
    EnAmbos(u"Número del comprobante de percepción", CompruebaNumeroPercepcion),
    EnAmbos(u"Fecha de emisión", CompruebaFechaEmision),
    EnAmbos(u"Da derecho a crédito fiscal", CompruebaCreditoFiscal),
    EnAmbos(u"Venta comprende materiales", CompruebaRespuestaVenta),
    EnAmbos(u"Cliente en el listado", CompruebaListaClientes),
    EnAmbos(u"Monto cobrado", CompruebaMontoCobrado),
    FilaCampo{u"Tipo del comprobante de pago", CompruebaTipoCp, CompruebaTipoCpVenta},
    EnUno(u"Serie del comprobante de pago", CompruebaSerieCp),
    EnUno(u"Número del comprobante de pago", CompruebaNumeroCp),
    EnUno(u"Fecha del comprobante de pago", CompruebaFechaCp),
    EnUno(u"Importe del comprobante de pago", CompruebaMontoCp),
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

template <typename Tablas>
std::unique_ptr<Almacen> AbreAlmacen(Proceso& proceso) {
    return std::make_unique<Tablas>(*proceso.baseDatos, proceso.periodoDeclarado, proceso.fechaPrimerIgv);
}

} // namespace

const FormatoImportacion& FormatoPercepciones() {
    static constexpr FormatoImportacion kFormato{""_L1, kDePercepcion, AbreAlmacen<AlmacenPercepciones>, nullptr};
    return kFormato;
}

const FormatoImportacion& FormatoVentas() {
    static constexpr FormatoImportacion kFormato{"VC"_L1, kDeVenta, AbreAlmacen<AlmacenVentas>, LeeTiposDeVenta};
    return kFormato;
}

QString NombreDeCampo(Campo campo) {
    return kTabla[static_cast<size_t>(campo)].nombre.toString();
}

} // namespace xa518
