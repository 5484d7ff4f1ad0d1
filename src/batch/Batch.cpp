#include "batch/Batch.h"

#include "batch/Commands.h"
#include "batch/ExitCode.h"
#include "batch/ProgressLine.h"
#include "batch/Session.h"
#include "data/ServerFailure.h"
#include "family/Startup.h"
#include "platform/Clock.h"

#include <QTextStream>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<Reloj> RelojPara(const Argumentos& argumentos) {
    if (argumentos.hoy)
        return std::make_unique<RelojFijo>(argumentos.hoy->startOfDay());
    return std::make_unique<RelojSistema>();
}

Informe Ejecuta(const Argumentos& argumentos, const EntornoLote& entorno) {
    const std::unique_ptr<Reloj> reloj = RelojPara(argumentos);
    LineaDeAvance avance(entorno.errores, entorno.muestraAvance);
    Informe informe;
    try {
        const std::unique_ptr<Proceso> proceso = AbreSesion(entorno.perfil, *reloj);
        if (const std::optional<Mensaje> aviso = AvisoDeRed(proceso->rutaBase))
            informe.mensajes.append(*aviso);
        EjecutaOrden(*proceso, argumentos, avance, informe);
    } catch (const Rechazo& rechazo) {
        informe.codigo = kSalidaRechazado;
        informe.mensajes.append(rechazo.mensaje);
        if (!rechazo.detalle.isEmpty())
            informe.mensajes.append({Icono::Critico, rechazo.detalle, {}});
    } catch (const Error& error) {
        informe.codigo = CodigoDeSalida(error, kSalidaFallo);
        informe.mensajes.append({Icono::Critico, u"%1 (error %2)"_s.arg(error.Texto()).arg(error.Numero()), {}});
        informe.detalle = error.Detalle();
    }
    return informe;
}

/// Of a command line that can't be read.
Informe InformeDe(const Lectura& lectura) {
    Informe informe;
    informe.codigo = lectura.codigo;
    informe.mensajes.append({Icono::Critico, lectura.defecto, {}});
    return informe;
}

} // namespace

int EjecutaLote(const QStringList& argumentos, const EntornoLote& entorno) {
    const Lectura lectura = LeeArgumentos(argumentos);
    if (!lectura.argumentos) {
        (lectura.codigo == kSalidaBien ? entorno.salida : entorno.errores) << lectura.texto;
        if (lectura.pideJson && lectura.codigo != kSalidaBien)
            EscribeJson(InformeDe(lectura), entorno.salida);
        return lectura.codigo;
    }
    const Informe informe = Ejecuta(*lectura.argumentos, entorno);
    if (lectura.argumentos->json)
        EscribeJson(informe, entorno.salida);
    else
        EscribeTexto(informe, entorno.salida);
    if (informe.SeDetuvo())
        EscribeMensajes(informe, entorno.errores);
    if (!informe.apartada.isEmpty())
        entorno.errores << informe.apartada << u'\n';
    if (!informe.detalle.isEmpty())
        entorno.errores << informe.detalle << u'\n';
    return informe.codigo;
}

} // namespace xa518
