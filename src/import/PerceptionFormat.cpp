#include "import/PerceptionFormat.h"

#include "data/Process.h"
#include "import/PerceptionStore.h"

#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<Comprobacion, kCampos> kComprobaciones{
    CompruebaTipoDoc,         CompruebaNumDoc,        CompruebaRazonSocial,     CompruebaApellidoPaterno,
    CompruebaApellidoMaterno, CompruebaNombres,       CompruebaSeriePercepcion, CompruebaNumeroPercepcion,
    CompruebaFechaEmision,    CompruebaCreditoFiscal, CompruebaRespuestaVenta,  CompruebaListaClientes,
    CompruebaMontoCobrado,    CompruebaTipoCp,        CompruebaSerieCp,         CompruebaNumeroCp,
    CompruebaFechaCp,         CompruebaMontoCp};

std::unique_ptr<Almacen> AbreAlmacen(Proceso& proceso) {
    return std::make_unique<AlmacenPercepciones>(*proceso.baseDatos, proceso.periodoDeclarado, proceso.fechaPrimerIgv);
}

} // namespace

const FormatoImportacion& FormatoPercepciones() {
    static constexpr FormatoImportacion kFormato{""_L1, kComprobaciones, AbreAlmacen};
    return kFormato;
}

} // namespace xa518
