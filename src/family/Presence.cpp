#include "family/Presence.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

DeclaracionOcupada OcupadaDe(const ClaveDeclaracion& clave) {
    return {.ruc = clave.ruc.Texto(),
            .periodo = clave.periodo.Texto(),
            .formulario = clave.formulario,
            .correl = clave.correl};
}

bool EstaCompleta(const DeclaracionOcupada& cual) {
    return !cual.ruc.isEmpty() && !cual.periodo.isEmpty();
}

/// "desde las 10:42", and of another day its date.
QString DesdeCuando(const QDateTime& momento, const QDate& hoy) {
    const QString hora = momento.toString(u"HH:mm"_s);
    return momento.date() == hoy ? hora : hora + u" del "_s + momento.toString(u"dd/MM/yyyy"_s);
}

} // namespace

TrabajoAjeno::TrabajoAjeno()
    : TrabajoAjeno(u"Otro programa tiene abierta una declaración. Ciérrela, o espere a que termine,"
                   " y vuelva a intentarlo."_s) {}

TrabajoAjeno::TrabajoAjeno(const QString& texto) : Error(NumeroError::BaseBloqueada, texto) {}

DeclaracionAbierta::DeclaracionAbierta(const Puesto& quien)
    : TrabajoAjeno(u"La declaración %1 de %2 está abierta por %3 en %4 desde las %5."_s.arg(
          quien.abierta.formulario, Periodo::DeTabla(quien.abierta.periodo).value_or(Periodo()).EnPantalla(),
          quien.quien.usuario, quien.quien.equipo, DesdeCuando(quien.abiertaDesde, quien.ahora.date()))) {}

Presencia::Presencia(Base& base, const ClaveDeclaracion& clave) : m_base(&base) {
    Toma(clave);
}

Presencia::~Presencia() {
    if (m_tomada)
        m_base->LosPuestos()->Libera(*m_tomada);
}

void Presencia::Toma(const ClaveDeclaracion& clave) {
    Puestos* puestos = m_base->LosPuestos();
    const DeclaracionOcupada cual = OcupadaDe(clave);
    if (puestos == nullptr || !EstaCompleta(cual) || m_tomada == cual)
        return;
    if (!puestos->Ocupa(cual)) {
        if (const std::optional<Puesto> quien = puestos->QuienTiene(cual))
            throw DeclaracionAbierta(*quien);
        throw TrabajoAjeno();
    }
    if (m_tomada)
        puestos->Libera(*m_tomada);
    m_tomada = cual;
}

void ExigeSinAbiertasDe(Base& base, const Ruc& ruc) {
    if (base.LosPuestos() == nullptr)
        return;
    for (const Puesto& puesto : base.LosPuestos()->Lista()) {
        if (puesto.vivo && !puesto.propio && puesto.abierta.ruc == ruc.Texto())
            throw DeclaracionAbierta(puesto);
    }
}

} // namespace xa518
