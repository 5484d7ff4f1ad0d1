#include "import/ImportRun.h"

#include "family/Process.h"
#include "form518/WorkTables.h"
#include "import/ErrorSheet.h"
#include "import/ErrorTexts.h"
#include "import/Formats.h"
#include "import/ImportFile.h"
#include "import/LineFields.h"
#include "import/LineReader.h"
#include "import/RunBatches.h"
#include "import/RunMessages.h"
#include "platform/Clock.h"
#include "values/FileFailure.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

void Abre(QFile& archivo, const QString& ruta) {
    archivo.setFileName(ruta);
    if (!archivo.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw FallaDeArchivo(Intento::Leer, archivo);
}

Error ArchivoCambiado() {
    return {NumeroError::AccesoAlDisco, u"El archivo ha cambiado mientras se importaba."_s};
}

/// The whole file was looked through before, so a line too long now is news.
bool LeeLinea(LectorLineas& lector) {
    const LectorLineas::Lectura lectura = lector.Siguiente();
    if (lectura == LectorLineas::Lectura::DemasiadoLarga)
        throw ArchivoCambiado();
    return lectura == LectorLineas::Lectura::Linea;
}

} // namespace

Transferencia::Transferencia(Proceso& proceso, ClaveDeclaracion clave, const FormatoImportacion& formato, QString ruta,
                             const OpcionesImportacion& opciones)
    : m_proceso(proceso)
    , m_clave(std::move(clave))
    , m_formato(formato)
    , m_ruta(std::move(ruta))
    , m_opciones(opciones)
    , m_contexto{m_clave.ruc, m_clave.periodo, proceso.reloj.Hoy(), {}}
    , m_log(proceso, m_clave) {
    m_resultado.archivo = NombreDeArchivo(m_clave, formato);
}

ResultadoImportacion Transferencia::Revisa() {
    try {
        (void)EsApto();
    } catch (const Error& error) {
        Falla(error);
    }
    return m_resultado;
}

ResultadoImportacion Transferencia::Corre(ObservadorImportacion& observador, const AlEmpezar& alEmpezar) {
    try {
        if (EsApto())
            ImportaLineas(observador, alEmpezar);
    } catch (const Error& error) {
        Falla(error);
    }
    if (!m_opciones.prueba)
        CalcularTot();
    Cierra();
    return m_resultado;
}

bool Transferencia::EsApto() {
    Abre(m_archivo, BuscaArchivo(m_ruta, m_resultado.archivo));
    m_revision = RevisaArchivo(m_archivo, m_formato.Campos());
    if (m_revision.defecto == Defecto::Ninguno)
        return true;
    RechazaEntero();
    return false;
}

void Transferencia::RechazaEntero() {
    m_resultado.fin = FinImportacion::Rechazada;
    m_resultado.revision = m_revision;
    m_resultado.mensaje = MensajeDe(m_revision.defecto);
    m_resultado.detalle = DetalleDe(m_revision, m_formato.Campos());
    if (m_opciones.planilla)
        m_opciones.planilla->Anota({.linea = m_revision.linea,
                                    .campo = {},
                                    .valor = {},
                                    .codigo = {},
                                    .motivo = m_resultado.mensaje->texto + u". "_s + m_resultado.detalle,
                                    .archivo = m_resultado.archivo});
}

void Transferencia::ImportaLineas(ObservadorImportacion& observador, const AlEmpezar& alEmpezar) {
    Lotes lotes(*m_proceso.baseDatos, m_opciones.prueba, m_resultado.transferidos);
    lotes.Empieza();
    if (alEmpezar)
        alEmpezar();
    const std::unique_ptr<Almacen> almacen =
        m_formato.almacen(*m_proceso.baseDatos, m_clave.periodo, m_proceso.fechaPrimerIgv);
    if (m_formato.tipos)
        m_contexto.ventas = m_formato.tipos(*m_proceso.baseDatos);
    try {
        RecorreLineas(observador, lotes, *almacen);
        EscribeLote(lotes, *almacen);
        AnotaFin(m_resultado.fin == FinImportacion::Cancelada ? FinDeCorrida::Cancelada : FinDeCorrida::Completa);
        lotes.Cierra();
    } catch (const Error&) {
        if (!Conserva(lotes, *almacen))
            Pierde(m_resultado.transferidos - lotes.Conservadas());
        throw;
    }
}

/// The lines before an error stay, so their rows are still to be written.
bool Transferencia::Conserva(Lotes& lotes, Almacen& almacen) {
    try {
        EscribeLote(lotes, almacen);
        AnotaFin(FinDeCorrida::Fallida);
    } catch (const Error&) {
        return lotes.Conserva();
    }
    return lotes.Conserva();
}

/// Lines whose rows are gone aren't claimed.
void Transferencia::Pierde(qint64 lineas) {
    m_resultado.transferidos -= lineas;
    m_resultado.noConservado.append(NoSeConservaron(lineas, m_resultado.transferidos));
}

void Transferencia::RecorreLineas(ObservadorImportacion& observador, Lotes& lotes, Almacen& almacen) {
    LectorLineas lector(m_archivo);
    while (LeeLinea(lector)) {
        if (!observador.Sigue(
                {m_resultado.transferidos, m_resultado.rechazados, lector.BytesLeidos(), m_revision.bytes})) {
            m_resultado.fin = FinImportacion::Cancelada;
            return;
        }
        if (lotes.EstaLleno()) {
            EscribeLote(lotes, almacen);
            lotes.Termina();
        }
        if (lotes.Linea())
            EmpiezaLote(almacen);
        ++m_numeroLinea;
        ImportaLinea(lector.Linea(), almacen);
    }
    if (lector.BytesLeidos() != m_revision.bytes)
        throw ArchivoCambiado();
}

/// The run is noted within the transaction of its first rows: neither is there without the other, whatever happens.
void Transferencia::EmpiezaLote(Almacen& almacen) {
    if (m_opciones.seDeshace && !m_corrida) {
        m_corrida = CorridasTrabajo(*m_proceso.baseDatos)
                        .Empieza({.nombre = m_resultado.archivo,
                                  .huella = HuellaDeArchivo(m_archivo.fileName()),
                                  .bytes = m_revision.bytes},
                                 m_proceso.sysUser, m_proceso.reloj.Ahora());
    }
    almacen.Empieza();
}

void Transferencia::AnotaFin(FinDeCorrida fin) {
    if (m_corrida)
        CorridasTrabajo(*m_proceso.baseDatos)
            .Termina(*m_corrida, fin, m_resultado.transferidos, m_resultado.rechazados);
}

/// Half a batch could be half of a line's rows: it is kept whole or not at all.
void Transferencia::EscribeLote(Lotes& lotes, Almacen& almacen) {
    QList<qint64> rechazadas;
    try {
        rechazadas = almacen.Escribe();
    } catch (const Error&) {
        lotes.Abandona();
        throw;
    }
    if (!rechazadas.isEmpty())
        RechazaEscritas(rechazadas);
}

/// Rows that met another one in the tables after all. Their lines are read again, for the logs.
void Transferencia::RechazaEscritas(const QList<qint64>& lineas) {
    const qint64 ultima = m_numeroLinea;
    QFile archivo;
    Abre(archivo, m_archivo.fileName());
    LectorLineas lector(archivo);
    m_numeroLinea = 0;
    for (const qint64 linea : lineas) {
        for (; m_numeroLinea < linea; ++m_numeroLinea) {
            if (!LeeLinea(lector))
                throw ArchivoCambiado();
        }
        SeparaCampos(Decodifica(lector.Linea(), m_revision.codificacion), m_formato.Campos(), m_campos);
        --m_resultado.transferidos;
        Rechaza(lector.Linea(), {kClaveDuplicada});
    }
    m_numeroLinea = ultima;
}

void Transferencia::ImportaLinea(QByteArrayView bytes, Almacen& almacen) {
    SeparaCampos(Decodifica(bytes, m_revision.codificacion), m_formato.Campos(), m_campos);
    const Refutacion refutacion = CompruebaLinea(m_formato.comprobaciones, m_campos, m_contexto, m_linea);
    if (refutacion)
        return Rechaza(bytes, refutacion);
    ++m_resultado.transferidos;
    for (const Codigo objecion : almacen.Guarda(m_linea, m_numeroLinea)) {
        // Wanted: only a duplicate key takes the line back from the transferred ones; see `ResultadoImportacion`.
        if (objecion == kClaveDuplicada)
            --m_resultado.transferidos;
        Rechaza(bytes, {objecion});
    }
}

/// Wanted: no refusal ends the run, however many there are and whatever becomes of the logs: one run shows all faults.
void Transferencia::Rechaza(QByteArrayView bytes, const Refutacion& refutacion) {
    ++m_resultado.rechazados;
    if (!m_opciones.prueba)
        m_log.GraboLog(bytes, ClaveDeLinea(m_campos), refutacion.codigo);
    if (m_opciones.planilla)
        AnotaEnPlanilla(bytes, refutacion);
}

void Transferencia::AnotaEnPlanilla(QByteArrayView bytes, const Refutacion& refutacion) {
    FilaPlanilla fila{.linea = m_numeroLinea,
                      .campo = {},
                      .valor = {},
                      .codigo = refutacion.codigo,
                      .motivo = Motivo(refutacion.codigo),
                      .archivo = m_resultado.archivo};
    if (refutacion.campo >= 0) {
        fila.campo = NombreDeCampo(static_cast<Campo>(refutacion.campo));
        fila.valor = Recorta(Decodifica(TrozoDeCampo(bytes, refutacion.campo), m_revision.codificacion)).toString();
    }
    m_opciones.planilla->Anota(fila);
}

/// Read once in a run: a month may be refused whole, line by line for the same reason.
const QString& Transferencia::Motivo(Codigo codigo) {
    QString& motivo = m_motivos[codigo];
    if (motivo.isEmpty())
        motivo = MotivoDe(*m_proceso.baseDatos, codigo);
    return motivo;
}

/// Wanted: over the whole work tables, and also after a refusal, a cancel or a failure, whose end it leaves as it is.
void Transferencia::CalcularTot() {
    try {
        TablasTrabajo(*m_proceso.baseDatos).CalculaTotales();
    } catch (const Error& error) {
        m_resultado.sinTotales = error;
    }
}

void Transferencia::Falla(const Error& error) {
    m_resultado.fin = FinImportacion::Fallida;
    m_resultado.falla = error;
    m_resultado.mensaje = Errores_Transferencia(error);
}

/// Wanted: a file that is refused for a line without its final separator stays open behind the run. Closed here, it
/// could be replaced, where open files can't, under a window that still tells of it.
void Transferencia::Cierra() {
    if (m_revision.defecto != Defecto::SinSeparadorFinal)
        m_archivo.close();
    if (m_log.LogEmpezado())
        m_resultado.rutaLog = m_log.RutaLog();
    if (m_log.ErrEmpezado())
        m_resultado.rutaErr = m_log.RutaErr();
    if (!m_log.Falla().isEmpty())
        m_resultado.noConservado.append(m_log.Falla());
    if (m_resultado.fin == FinImportacion::Completa)
        m_resultado.mensaje = MensajeFinal();
}

Mensaje Transferencia::MensajeFinal() const {
    if (m_opciones.prueba)
        return MensajeDePrueba(m_resultado.archivo, m_resultado.rechazados);
    return m_resultado.rechazados < 1 ? MensajeTransferido(m_resultado.archivo) : PreguntaPorReporte(m_log.RutaLog());
}

} // namespace xa518
