#include "declaration/Safekeeping.h"

#include <QApplication>
#include <QSessionManager>

#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Less than the two seconds that are promised, by what a write may take.
constexpr int kPlazoMs = 1500;
/// A server that is gone isn't asked for at every turn: each time the window would stand still.
constexpr int kPlazoTrasFallaMs = 20'000;

/// What makes it another one.
QString EnUno(const SinGrabar& fila) {
    return QStringList{fila.clave.ruc.Texto(), fila.clave.periodo.Texto(), fila.guardado.Texto(), fila.escrito}.join(
        u'\n');
}

} // namespace

Resguardo::Resguardo(const Proceso& proceso, Retrato retrato, bool hayQueGuardar)
    : m_proceso(proceso), m_retrato(std::move(retrato)), m_hayQueGuardar(hayQueGuardar) {
    m_plazo.setSingleShot(true);
    connect(&m_plazo, &QTimer::timeout, this, [this] { Escribe(); });
    // At once, since the system ends the program soon after.
    connect(
        qApp, &QGuiApplication::commitDataRequest, this, [this] { EscribeYa(); }, Qt::DirectConnection);
}

Base& Resguardo::SuBase() {
    if (!m_aparte)
        m_aparte.emplace(ProcesoAparte(m_proceso).Abre());
    return *m_aparte->baseDatos;
}

/// A running term isn't begun anew: who types without a pause is kept all the same.
void Resguardo::Anota() {
    m_falta = m_hayQueGuardar;
    if (m_falta && !m_plazo.isActive())
        m_plazo.start(kPlazoMs);
}

void Resguardo::AnotaDetalle() {
    m_ultimo.clear();
    Anota();
}

void Resguardo::EscribeDetalle() {
    AnotaDetalle();
    EscribeYa();
}

void Resguardo::EscribeYa() {
    m_plazo.stop();
    Escribe();
}

void Resguardo::Quita() {
    m_plazo.stop();
    m_falta = false;
    m_ultimo.clear();
    if (!m_hayQueGuardar)
        return;
    try {
        TablaSinGrabar(SuBase()).Quita();
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
        // The next start offers what was saved or left: a question too many loses nothing.
    }
}

void Resguardo::Escribe() {
    if (!m_falta || !m_proceso.baseDatos)
        return;
    try {
        Intenta();
        m_falta = false;
    } catch (const Error& falla) {
        const bool ocupada = falla.Es(NumeroError::BaseBloqueada) || falla.Es(NumeroError::Conflicto);
        if (!ocupada)
            m_aparte.reset();
        m_plazo.start(ocupada ? kPlazoMs : kPlazoTrasFallaMs);
    }
}

void Resguardo::Intenta() {
    SinGrabar fila = m_retrato();
    QString ahora = EnUno(fila);
    if (ahora == m_ultimo)
        return;
    const Firma firma = m_proceso.SuFirma();
    fila.usuario = firma.usuario;
    fila.equipo = firma.equipo;
    fila.momento = firma.momento;
    TablaSinGrabar(SuBase()).Escribe(fila);
    m_ultimo = std::move(ahora);
}

} // namespace xa518
