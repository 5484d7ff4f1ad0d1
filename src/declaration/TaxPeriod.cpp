#include "declaration/TaxPeriod.h"

#include "data/Base.h"
#include "form518/Form0518.h"
#include "form518/LawBands.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kPeriodoVacio = u"__/____"_s;

VeredictoDeclaracion PeriodoNoValido() {
    return VeredictoDeclaracion::Critico(u"El período no es válido."_s, CampoDeclaracion::Periodo);
}

} // namespace

std::optional<VeredictoDeclaracion> ValidaPeriodo(const QString& mostrado, const QDate& hoy) {
    if (mostrado.contains(u'_'))
        return std::nullopt;
    const std::optional<Periodo> periodo = Periodo::DePantalla(mostrado);
    if (!periodo || *periodo < kPrimerPeriodo || *periodo > Periodo::DelDia(hoy))
        return PeriodoNoValido();
    return Veredicto::Bien();
}

bool ExisteDeclaracion(Base& base, const ClaveDeclaracion& clave) {
    Registros filas = base.Lee(u"SELECT * FROM "_s + clave.Tabla(u"CAB"_s) + u' ' + clave.Condicion(), clave.Valores());
    return filas.Siguiente();
}

VeredictoDeclaracion RechazaDuplicada(Base& base, const ClaveDeclaracion& clave) {
    return ExisteDeclaracion(base, clave)
               ? VeredictoDeclaracion::Critico(u"La declaración ya ha sido registrada."_s, CampoDeclaracion::Periodo)
               : VeredictoDeclaracion(Veredicto::Bien());
}

std::optional<VeredictoDeclaracion> ValidaContForm1(Base& base, const Identificacion& identificacion,
                                                    const QDate& hoy) {
    const QString& mostrado = identificacion.mostrado;
    if (identificacion.nueva) {
        if (identificacion.ruc.EstaVacio())
            return VeredictoDeclaracion::Critico(u"Debe seleccionar un Contribuyente."_s, CampoDeclaracion::Ruc);
        if (mostrado == kPeriodoVacio)
            return VeredictoDeclaracion::Critico(u"Debe ingresar Período."_s, CampoDeclaracion::Periodo);
        // A disabled period field is the sign that the form itself saved the row, so later saves pass.
        const ClaveDeclaracion clave{.ruc = identificacion.ruc,
                                     .periodo = Periodo::DePantalla(mostrado).value_or(Periodo()),
                                     .formulario = kNumFormulario};
        if (identificacion.periodoHabilitado) {
            if (VeredictoDeclaracion unica = RechazaDuplicada(base, clave); !unica)
                return unica;
        }
    }
    if (Recorta(mostrado) == kPeriodoVacio)
        return std::nullopt;
    return ValidaPeriodo(mostrado, hoy);
}

VeredictoDeclaracion ValidaClaveElegida(const Identificacion& identificacion) {
    if (!identificacion.nueva)
        return Veredicto::Bien();
    if (identificacion.ruc.EstaVacio())
        return VeredictoDeclaracion::Critico(u"Ingrese el RUC."_s, CampoDeclaracion::Ruc);
    return identificacion.mostrado.contains(u'_') ? PeriodoNoValido() : VeredictoDeclaracion(Veredicto::Bien());
}

VeredictoDeclaracion RechazaRucDeOcho(const Ruc& ruc) {
    if (!ruc.EsAntiguo())
        return Veredicto::Bien();
    return VeredictoDeclaracion::Rechaza(
        {Icono::Informacion,
         u"No puede grabar declaraciones con RUC de 8, modifique el RUC de 8 a 11 en el Modulo de "
         "Registro de Declarantes."_s,
         {}},
        CampoDeclaracion::Ruc);
}

} // namespace xa518
