#include "data/Seats.h"

#include "data/Base.h"

#include <algorithm>
#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// 6 is the kind of document of whoever declares.
QString NombreDe(const DeclaracionOcupada& cual) {
    return QStringList{cual.ruc, u"6"_s, cual.periodo, cual.formulario, cual.correl}.join(u'|');
}

Puesto PuestoDe(const Registros& fila) {
    return {.esquema = fila.Texto(u"esquema"),
            .quien = {fila.Texto(u"usuario"), fila.Texto(u"equipo"), fila.Texto(u"programa")},
            .desde = QDateTime::fromMSecsSinceEpoch(fila.Entero(4)),
            .vivo = fila.Entero(5) != 0,
            .propio = fila.Entero(6) != 0,
            .abierta = {fila.Texto(u"ruc"), fila.Texto(u"periodo"), fila.Texto(u"formulario"), fila.Texto(u"correl")},
            .abiertaDesde = QDateTime::fromMSecsSinceEpoch(fila.Entero(11)),
            .ahora = QDateTime::fromMSecsSinceEpoch(fila.Entero(13)),
            .estado = fila.Texto(u"estado")};
}

} // namespace

Puesto Puestos::Toma(const Ocupante& quien) {
    Registros fila =
        m_base->Lee(u"SELECT familia.toma_puesto(?, ?, ?)"_s, {quien.usuario, quien.equipo, quien.programa});
    m_puesto = fila.Siguiente() ? EsquemaDeTrabajo::De(fila.Texto(0)) : std::nullopt;
    const QList<Puesto> todos = Lista();
    const auto suyo = std::ranges::find_if(todos, &Puesto::propio);
    if (!m_puesto || suyo == todos.cend())
        throw ErrorBase(NumeroError::FallaDelMotor, u"El servidor no dio un puesto de trabajo."_s);
    m_base->PonTrabajo(*m_puesto);
    return *suyo;
}

QList<Puesto> Puestos::Lista() const {
    Registros filas = m_base->Lee(u"SELECT * FROM familia.los_puestos()"_s);
    QList<Puesto> puestos;
    while (filas.Siguiente())
        puestos.append(PuestoDe(filas));
    return puestos;
}

bool Puestos::Quita(const QString& esquema) {
    return Pide(u"SELECT CAST(familia.quita_puesto(?) AS integer)"_s, {esquema});
}

bool Puestos::Ocupa(const DeclaracionOcupada& cual) {
    if (!Pide(u"SELECT CAST(pg_try_advisory_lock(hashtextextended(?, 0)) AS integer)"_s, {NombreDe(cual)}))
        return false;
    m_ocupadas.append(cual);
    Anota(cual, m_estado);
    return true;
}

void Puestos::Anota(const DeclaracionOcupada& cual, const QString& estado) {
    m_estado = estado;
    (void)Pide(u"SELECT 1 FROM (SELECT familia.anota_abierta(?, ?, ?, ?, ?)) AS q"_s,
               {cual.ruc, cual.periodo, cual.formulario, cual.correl, estado});
}

void Puestos::Libera(const DeclaracionOcupada& cual) noexcept {
    if (!m_ocupadas.removeOne(cual))
        return;
    m_estado.clear();
    try {
        (void)Pide(u"SELECT CAST(pg_advisory_unlock(hashtextextended(?, 0)) AS integer)"_s, {NombreDe(cual)});
        (void)Pide(u"SELECT 1 FROM (SELECT familia.anota_abierta('', '', '', '', '')) AS q"_s, {});
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
        // Its connection is lost, and with it what it had taken.
    }
}

std::optional<Puesto> Puestos::QuienTiene(const DeclaracionOcupada& cual) const {
    for (Puesto& puesto : Lista()) {
        if (puesto.vivo && !puesto.propio && puesto.abierta == cual)
            return std::move(puesto);
    }
    return std::nullopt;
}

void Puestos::Deja() noexcept {
    if (!m_puesto && m_ocupadas.isEmpty())
        return;
    try {
        (void)Pide(u"SELECT 1 FROM (SELECT pg_advisory_unlock_all()) AS q"_s, {});
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
        // Its connection is lost, and with it everything.
    }
}

bool Puestos::Retoma(int suPid) const {
    return !m_puesto || Pide(u"SELECT CAST(familia.retoma_puesto(?, ?) AS integer)"_s, {m_puesto->Nombre(), suPid});
}

void Puestos::RetomaOcupadas() {
    for (const DeclaracionOcupada& cual : std::exchange(m_ocupadas, {})) {
        if (!Ocupa(cual))
            throw ErrorBase(
                NumeroError::BaseBloqueada,
                u"Mientras no había conexión con el servidor, otro puesto abrió la declaración %1 de %2."_s.arg(
                    cual.formulario, cual.periodo));
    }
}

bool Puestos::Pide(const QString& sql, const QVariantList& valores) const {
    Registros fila = m_base->Lee(sql, valores);
    return fila.Siguiente() && fila.Entero(0) != 0;
}

} // namespace xa518
