#include "import/DecidedLines.h"

#include "import/LineFields.h"
#include <system_error>
#include <thread>
#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

Error ArchivoCambiado() {
    return {NumeroError::AccesoAlDisco, u"El archivo ha cambiado mientras se importaba."_s};
}

bool LeeLinea(LectorLineas& lector) {
    const LectorLineas::Lectura lectura = lector.Siguiente();
    if (lectura == LectorLineas::Lectura::DemasiadoLarga)
        throw ArchivoCambiado();
    return lectura == LectorLineas::Lectura::Linea;
}

LineasDecididas::LineasDecididas(QIODevice& archivo, Codificacion codificacion, const FormatoImportacion& formato,
                                 const ContextoImportacion& contexto, Almacen& almacen)
    : m_lector(archivo), m_codificacion(codificacion), m_formato(formato), m_contexto(contexto), m_almacen(almacen) {}

bool LineasDecididas::Siguiente() {
    if (!SiguienteAdelantada() && !LeeSiguiente())
        return false;
    ++m_numero;
    return true;
}

bool LineasDecididas::SiguienteAdelantada() {
    if (!EsAdelantada())
        return false;
    if (EsNotada())
        ++m_notada;
    ++m_lugar;
    return EsAdelantada() || std::exchange(m_porDecidir, false);
}

bool LineasDecididas::LeeSiguiente() {
    if (m_falla)
        std::rethrow_exception(std::exchange(m_falla, nullptr));
    m_comienzo = m_lector.BytesLeidos();
    return LeeLinea(m_lector);
}

qint64 LineasDecididas::BytesLeidos() const {
    return EsAdelantada() ? m_adelantadas[m_lugar] : m_lector.BytesLeidos();
}

Dictamen LineasDecididas::Decide() {
    if (EsAdelantada())
        return EsNotada() ? std::move(m_notadas[m_notada].dictamen) : Dictamen();
    if (const Refutacion refutacion = Comprueba())
        return {refutacion, {}, {}};
    return Guarda(m_numero);
}

QByteArrayView LineasDecididas::Bytes() const {
    return EsAdelantada() && EsNotada() ? QByteArrayView(m_notadas[m_notada].bytes) : m_lector.Linea();
}

Refutacion LineasDecididas::Comprueba() {
    SeparaCampos(Decodifica(m_lector.Linea(), m_codificacion), m_formato.Campos(), m_campos);
    return CompruebaLinea(m_formato.comprobaciones, m_campos, m_contexto, m_linea);
}

Dictamen LineasDecididas::Guarda(qint64 numero) {
    try {
        return {{}, m_almacen.Guarda(m_linea, numero), {}};
    } catch (...) {
        return {{}, {}, std::current_exception()};
    }
}

/// Where no thread is to be had, the lines wait for their turn.
void LineasDecididas::Adelanta(qint64 maximo, const std::function<void()>& trabajo) {
    Vacia();
    std::jthread hilo;
    try {
        hilo = std::jthread([this, maximo](const std::stop_token& basta) { DecideJunto(maximo, basta); });
    } catch (const std::system_error&) { // NOLINT(bugprone-empty-catch)
    }
    trabajo();
}

void LineasDecididas::DecideJunto(qint64 maximo, const std::stop_token& basta) noexcept {
    try {
        for (qint64 numero = m_numero; DecideAdelantada(numero); ++numero) {
            if (numero - m_numero + 1 == maximo || basta.stop_requested() || !LeeLinea(m_lector))
                return;
        }
    } catch (...) {
        m_falla = std::current_exception();
    }
}

/// Decides the reader's line; false where that ends, at a line for which the base would have to be asked or behind one
/// that ends the run.
bool LineasDecididas::DecideAdelantada(qint64 numero) {
    Dictamen dictamen;
    dictamen.refutacion = Comprueba();
    if (!dictamen.refutacion) {
        if (!m_almacen.SinBase(m_linea)) {
            m_porDecidir = !m_adelantadas.empty();
            return false;
        }
        dictamen = Guarda(numero);
    }
    const bool sigue = !dictamen.falla;
    if (!dictamen.Pasa())
        m_notadas.push_back({m_adelantadas.size(), m_lector.Linea().toByteArray(), std::move(dictamen)});
    m_adelantadas.push_back(m_lector.BytesLeidos());
    return sigue;
}

/// The reader goes back to before the current line, the first of those decided beside the writing.
void LineasDecididas::Repite() {
    if (!EsAdelantada())
        return;
    Vacia();
    m_lector.VuelveA(m_comienzo);
    if (!LeeLinea(m_lector))
        throw ArchivoCambiado();
}

void LineasDecididas::Vacia() {
    m_adelantadas.clear();
    m_notadas.clear();
    m_lugar = 0;
    m_notada = 0;
    m_porDecidir = false;
    m_falla = nullptr;
}

} // namespace xa518
