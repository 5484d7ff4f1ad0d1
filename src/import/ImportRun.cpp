#include "import/ImportRun.h"

#include "data/Process.h"
#include "data/WorkTables.h"
#include "import/ImportFile.h"
#include "import/LineFields.h"
#include "import/LineReader.h"
#include "import/RunBatches.h"
#include "import/RunMessages.h"
#include "platform/Clock.h"

#include <QFile>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

void Abre(QFile& archivo) {
    if (!archivo.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw Error(NumeroError::AccesoAlDisco, u"No se puede leer el archivo: %1"_s.arg(archivo.errorString()));
}

/// The whole file was looked through before, so a line too long now is news.
bool LeeLinea(LectorLineas& lector) {
    const LectorLineas::Lectura lectura = lector.Siguiente();
    if (lectura == LectorLineas::Lectura::DemasiadoLarga)
        throw Error(NumeroError::AccesoAlDisco, u"El archivo ha cambiado mientras se importaba."_s);
    return lectura == LectorLineas::Lectura::Linea;
}

/// After an error: it is the error that the user must hear of, not that what it has left can't be kept either.
void ConservaLoEscrito(Lotes& lotes) {
    try {
        lotes.Cierra();
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
    }
}

} // namespace

Transferencia::Transferencia(Proceso& proceso, const FormatoImportacion& formato, QString carpeta)
    : m_proceso(proceso)
    , m_formato(formato)
    , m_carpeta(std::move(carpeta))
    , m_contexto{proceso.docDeclarante, proceso.periodoDeclarado, proceso.reloj.Hoy()}
    , m_log(proceso) {
    m_resultado.archivo = NombreDeArchivo(proceso, formato);
}

ResultadoImportacion Transferencia::Corre(ObservadorImportacion& observador, const std::function<void()>& alEmpezar) {
    try {
        Transfiere(observador, alEmpezar);
    } catch (const Error& error) {
        Falla(error);
    }
    CalcularTot();
    Cierra();
    return m_resultado;
}

void Transferencia::Transfiere(ObservadorImportacion& observador, const std::function<void()>& alEmpezar) {
    QFile archivo(BuscaArchivo(m_carpeta, m_resultado.archivo));
    Abre(archivo);
    const Revision revision = RevisaArchivo(archivo, m_formato.Campos());
    if (revision.defecto != Defecto::Ninguno) {
        m_resultado.fin = FinImportacion::Rechazada;
        m_resultado.mensaje = MensajeDe(revision.defecto);
        return;
    }
    if (alEmpezar)
        alEmpezar();
    ImportaLineas(archivo, revision.codificacion, observador);
}

void Transferencia::ImportaLineas(QFile& archivo, Codificacion codificacion, ObservadorImportacion& observador) {
    Lotes lotes(*m_proceso.baseDatos);
    try {
        RecorreLineas(archivo, codificacion, observador, lotes);
    } catch (const Error&) {
        ConservaLoEscrito(lotes);
        throw;
    }
    lotes.Cierra();
}

void Transferencia::RecorreLineas(QFile& archivo, Codificacion codificacion, ObservadorImportacion& observador,
                                  Lotes& lotes) {
    const std::unique_ptr<Almacen> almacen = m_formato.almacen(m_proceso);
    const qint64 bytesTotal = archivo.size();
    LectorLineas lector(archivo);
    while (LeeLinea(lector)) {
        if (!observador.Sigue({m_resultado.transferidos, m_resultado.rechazados, lector.BytesLeidos(), bytesTotal})) {
            m_resultado.fin = FinImportacion::Cancelada;
            return;
        }
        lotes.Linea();
        ImportaLinea(lector.Linea(), codificacion, *almacen);
    }
}

void Transferencia::ImportaLinea(QByteArrayView bytes, Codificacion codificacion, Almacen& almacen) {
    SeparaCampos(Decodifica(bytes, codificacion), m_formato.Campos(), m_campos);
    const Codigo refutacion = CompruebaLinea(m_formato.comprobaciones, m_campos, m_contexto, m_linea);
    if (!refutacion.isEmpty())
        return Rechaza(bytes, refutacion);
    ++m_resultado.transferidos;
    for (const Codigo objecion : almacen.Guarda(m_linea)) {
        // Wanted: only a duplicate key takes the line back from the transferred ones.
        if (objecion == kClaveDuplicada)
            --m_resultado.transferidos;
        Rechaza(bytes, objecion);
    }
}

void Transferencia::Rechaza(QByteArrayView bytes, Codigo codigo) {
    ++m_resultado.rechazados;
    m_log.GraboLog(bytes, ClaveDeLinea(m_campos), codigo);
}

/// Wanted: over the whole work tables, and also after a cancel or a failure.
void Transferencia::CalcularTot() {
    try {
        TablasTrabajo(*m_proceso.baseDatos).CalculaTotales();
    } catch (const Error& error) {
        if (m_resultado.fin != FinImportacion::Fallida)
            Falla(error);
    }
}

void Transferencia::Falla(const Error& error) {
    m_resultado.fin = FinImportacion::Fallida;
    m_resultado.numeroError = error.Numero();
    m_resultado.mensaje = Errores_Transferencia(error);
}

void Transferencia::Cierra() {
    if (m_log.Empezado()) {
        m_resultado.rutaLog = m_log.RutaLog();
        m_resultado.rutaErr = m_log.RutaErr();
    }
    m_resultado.fallaDelLog = m_log.Falla();
    if (m_resultado.fin == FinImportacion::Completa)
        m_resultado.mensaje =
            m_resultado.rechazados < 1 ? MensajeTransferido(m_resultado.archivo) : PreguntaPorReporte(m_log.RutaLog());
}

} // namespace xa518
