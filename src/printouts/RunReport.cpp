#include "printouts/RunReport.h"

#include "data/LongReading.h"
#include "family/Process.h"
#include "printouts/AnnexReport.h"
#include "printouts/DeclarationReport.h"
#include "reports/FollowedReport.h"
#include "reports/SharedReports.h"
#include "reports/SpoolFile.h"
#include "reports/SpoolRegistry.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTipoRuc = 6;

/// The width of every report when it begins; the annex widens it.
constexpr int kAnchoInicial = 104;

void Encabeza(bool apaisado, int hojas, EscritorInforme& escritor) {
    using enum Etiqueta::Clase;
    escritor.Encabeza({Fuente, u"Courier New"_s});
    escritor.Encabeza({Hojas, QString::number(std::max(hojas, 1))});
    escritor.Encabeza({Orientacion, apaisado ? u"H"_s : u"V"_s});
    escritor.Encabeza({Color, u"&H00FFFFC0&"_s});
}

void GeneraDeclaracion(const EntornoRegistro& entorno, const PedidoDeclaracion& pedido, EscritorInforme& escritor) {
    Base& base = entorno.base;
    const LecturaLarga lectura(base);
    if (pedido.anexo) {
        Encabeza(pedido.anexo, InformeAnexo::TotalPaginas(base, pedido.datos.clave), escritor);
        InformeAnexo(base, entorno.reloj, pedido.datos, escritor).Imprime();
    } else {
        Encabeza(pedido.anexo, InformeDeclaracion::TotalPaginas(pedido.datos), escritor);
        InformeDeclaracion(base, pedido.datos, escritor).Imprime();
    }
}

void GeneraCambios(const EntornoRegistro& entorno, const DatosCambios& datos, EscritorInforme& escritor) {
    Encabeza(true, InformeCambios::TotalPaginas(*datos.comparacion), escritor);
    InformeCambios(entorno.reloj, datos, escritor).Imprime();
}

struct Registrado {
    QString codigo;
    QString doc;
};

Registrado RegistroDe(const PedidoInforme& pedido) {
    if (const auto* errores = std::get_if<DatosErrores>(&pedido))
        return {u"PER005"_s, errores->docDeclarante.Texto()};
    if (const auto* cambios = std::get_if<DatosCambios>(&pedido))
        return {u"PER008"_s, cambios->comparacion->pedido.copia.clave.ruc.Texto()};
    const auto& declaracion = std::get<PedidoDeclaracion>(pedido);
    return {declaracion.anexo ? u"PER007"_s : u"PER006"_s, declaracion.datos.clave.ruc.Texto()};
}

QString EscribeConRuta(Proceso& proceso, const PedidoInforme& pedido) {
    SinAvance nadie;
    return RutaDeInforme(proceso.rutaRPT, EscribeInforme(proceso, pedido, nadie));
}

} // namespace

void EjecutaReporte(const EntornoRegistro& entorno, const PedidoInforme& pedido, DestinoInforme& destino) {
    EscritorInforme escritor(destino, kAnchoInicial);
    if (const auto* errores = std::get_if<DatosErrores>(&pedido))
        ReporteErrores(entorno.reloj, *errores, escritor).Imprime();
    else if (const auto* cambios = std::get_if<DatosCambios>(&pedido))
        GeneraCambios(entorno, *cambios, escritor);
    else
        GeneraDeclaracion(entorno, std::get<PedidoDeclaracion>(pedido), escritor);
    destino.Termina();
}

QString EscribeInforme(const EntornoRegistro& entorno, const PedidoInforme& pedido, Avance& avance) {
    const auto [codigo, doc] = RegistroDe(pedido);
    QString archivo = NuevoReporte(entorno, codigo, kTipoRuc, doc);
    ArchivoSpool spool(RutaDeInforme(entorno.rutaRPT, archivo));
    InformeSeguido seguido(spool, avance);
    try {
        EjecutaReporte(entorno, pedido, seguido);
    } catch (const Detenido&) {
        spool.Retira();
        throw;
    }
    TextosDeInformes(entorno.base).Guarda(entorno.rutaRPT, archivo);
    return archivo;
}

InformesEmitidos ImprimeDeclaracion(Proceso& proceso, const ClaveDeclaracion& clave, bool anexos) {
    const std::optional<DatosDeclaracion> datos = CargarCasillas(*proceso.baseDatos, clave);
    if (!datos)
        return {{}, Veredicto::Rechaza(NoExisteDeclaracion(clave))};
    InformesEmitidos emitidos;
    emitidos.rutas.append(EscribeConRuta(proceso, PedidoDeclaracion{*datos, false}));
    if (anexos)
        emitidos.veredicto = ValidaAnexos(*datos);
    if (anexos && emitidos.veredicto)
        emitidos.rutas.append(EscribeConRuta(proceso, PedidoDeclaracion{*datos, true}));
    return emitidos;
}

QString TituloDe(const ClaveDeclaracion& clave, bool anexo) {
    return u"%1 %2 - RUC %3 - %4"_s.arg(anexo ? u"Anexo de la declaración"_s : u"Declaración"_s, clave.formulario,
                                        clave.ruc.Texto(), clave.periodo.EnPantalla());
}

int HojasDeImpresion(const PedidoDeclaracion& pedido, int hojas) {
    return pedido.anexo && pedido.datos.Clientes() > 0 ? hojas + 1 : hojas;
}

} // namespace xa518
