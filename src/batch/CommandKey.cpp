#include "batch/CommandKey.h"

#include "batch/Arguments.h"
#include "batch/Session.h"
#include "declaration/TaxPeriod.h"
#include "family/OfferedDeclarants.h"
#include "platform/Clock.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The declarant must be one of those that the user may choose in the module.
void ExigeDeclarante(const Proceso& proceso, const Ruc& ruc) {
    const QList<DeclaranteOfrecido> ofrecidos =
        DeclarantesOfrecidos(*proceso.baseDatos, {proceso.numFormulario, proceso.sysUser});
    if (std::any_of(ofrecidos.begin(), ofrecidos.end(),
                    [&](const DeclaranteOfrecido& ofrecido) { return ofrecido.ruc == ruc; }))
        return;
    throw RechazaCon(u"El declarante %1 no está registrado para el usuario «%2»."_s.arg(ruc.Texto(), proceso.sysUser));
}

} // namespace

void Exige(const Veredicto& veredicto) {
    if (!veredicto)
        throw Rechazo{veredicto.Motivo()};
}

ClaveDeclaracion ClaveDe(const Proceso& proceso, const Argumentos& argumentos) {
    const std::optional<Periodo> periodo = Periodo::DeTabla(argumentos.periodo);
    const auto veredicto = periodo ? ValidaPeriodo(periodo->EnPantalla(), proceso.reloj.Hoy()) : std::nullopt;
    if (!veredicto)
        throw RechazaCon(u"El período no es válido."_s);
    Exige(*veredicto);
    const Ruc ruc(argumentos.ruc);
    ExigeDeclarante(proceso, ruc);
    return {.ruc = ruc,
            .periodo = *periodo,
            .formulario = proceso.numFormulario,
            .enviada = argumentos.enviada.has_value(),
            .correl = argumentos.enviada.value_or(QString())};
}

void ExigeDeclaracion(Base& base, const ClaveDeclaracion& clave) {
    if (ExisteDeclaracion(base, clave))
        return;
    const QString cual = u"%1 para %2."_s.arg(clave.ruc.Texto(), clave.periodo.Texto());
    throw RechazaCon(clave.enviada ? u"No hay una copia enviada %1 de "_s.arg(clave.correl) + cual
                                   : u"No hay una declaración registrada de "_s + cual);
}

} // namespace xa518
