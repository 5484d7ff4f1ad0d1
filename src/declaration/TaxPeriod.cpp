#include "declaration/TaxPeriod.h"

#include "data/Base.h"
#include "values/Dates.h"
#include "values/Decimal.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kPeriodoVacio = u"__/____"_s;
const QString kPrimerPeriodo = u"200501"_s;

Veredicto PeriodoNoValido() {
    return Veredicto::Critico(u"El período no es válido."_s, kCampoPeriodo);
}

bool MesExiste(QStringView mostrado) {
    const Decimal mes = Decimal::Valor(mostrado.left(2));
    return mes >= Decimal::DeEntero(1) && mes <= Decimal::DeEntero(12);
}

} // namespace

Veredicto ValidaPeriodo(const QString& mostrado, const QDate& hoy) {
    const QString periodo = PeriodoDePantalla(mostrado);
    if (mostrado.contains(u'_') || SignoDelValor(periodo) < 0)
        return Veredicto::Callado(kCampoPeriodo);
    const QString actual = FormatFecha(hoy, u"yyyymmdd").left(6);
    if (periodo < kPrimerPeriodo || periodo > actual || !MesExiste(mostrado))
        return PeriodoNoValido();
    return Veredicto::Bien();
}

bool ExisteDeclaracion(Base& base, const ClaveDeclaracion& clave) {
    Registros filas = base.Lee(u"SELECT * FROM "_s + clave.Tabla(u"CAB"_s) + u' ' + clave.Condicion(), clave.Valores());
    return filas.Siguiente();
}

Veredicto RechazaDuplicada(Base& base, const ClaveDeclaracion& clave) {
    return ExisteDeclaracion(base, clave)
               ? Veredicto::Critico(u"La declaración ya ha sido registrada."_s, kCampoPeriodo)
               : Veredicto::Bien();
}

Veredicto ValidaContForm1(Base& base, const Identificacion& identificacion, const QDate& hoy) {
    const QString& mostrado = identificacion.mostrado;
    if (identificacion.nueva) {
        if (identificacion.ruc.isEmpty())
            return Veredicto::Critico(u"Debe seleccionar un Contribuyente."_s, kCampoRuc);
        if (mostrado == kPeriodoVacio)
            return Veredicto::Critico(u"Debe ingresar Período."_s, kCampoPeriodo);
        // A disabled period field is the sign that the form itself saved the row, so later saves pass.
        const ClaveDeclaracion clave{identificacion.ruc, PeriodoDePantalla(mostrado), kNumFormulario, false, {}};
        if (identificacion.periodoHabilitado) {
            if (Veredicto unica = RechazaDuplicada(base, clave); !unica)
                return unica;
        }
    }
    if (Recorta(mostrado) == kPeriodoVacio)
        return Veredicto::Callado(kCampoPeriodo);
    return ValidaPeriodo(mostrado, hoy);
}

Veredicto ValidaClaveElegida(const Identificacion& identificacion) {
    if (!identificacion.nueva)
        return Veredicto::Bien();
    if (identificacion.ruc.isEmpty())
        return Veredicto::Critico(u"Ingrese el RUC."_s, kCampoRuc);
    return identificacion.mostrado.contains(u'_') ? PeriodoNoValido() : Veredicto::Bien();
}

Veredicto RechazaRucDeOcho(const QString& ruc) {
    if (Recorta(ruc).size() != 8)
        return Veredicto::Bien();
    return Veredicto::Rechaza(
        {Icono::Informacion,
         u"No puede grabar declaraciones con RUC de 8, modifique el RUC de 8 a 11 en el Modulo de "
         "Registro de Declarantes."_s,
         {}},
        kCampoRuc);
}

} // namespace xa518
