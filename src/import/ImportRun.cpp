#include "import/ImportRun.h"

#include "data/ServerFailure.h"
#include "family/Process.h"
#include "form518/WorkTables.h"
#include "import/DecidedLines.h"
#include "import/DefectiveLines.h"
#include "import/ErrorSheet.h"
#include "import/ErrorTexts.h"
#include "import/Formats.h"
#include "import/ImportFile.h"
#include "import/LineFields.h"
#include "import/LineReader.h"
#include "import/RefusedLine.h"
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
    m_resultado.ruta = BuscaArchivo(m_ruta, m_resultado.archivo);
    Abre(m_archivo, m_resultado.ruta);
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
    if (m_opciones.rechazadas && m_revision.defecto != Defecto::Utf16)
        ReuneDefectuosas(m_archivo, m_formato.Campos(), *m_opciones.rechazadas);
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
    } catch (const ConfirmacionIncierta&) {
        Pierde(m_resultado.transferidos - lotes.Conservadas(), NoSeSabeSiQuedaron);
        throw;
    } catch (const Error&) {
        if (!Conserva(lotes, *almacen))
            Pierde(m_resultado.transferidos - lotes.Conservadas(), NoSeConservaron);
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

/// Lines whose rows are gone, or may be, aren't claimed.
void Transferencia::Pierde(qint64 lineas, QString (*frase)(qint64 perdidas, qint64 conservadas)) {
    m_resultado.transferidos -= lineas;
    m_resultado.noConservado.append(frase(lineas, m_resultado.transferidos));
}

void Transferencia::RecorreLineas(ObservadorImportacion& observador, Lotes& lotes, Almacen& almacen) {
    LineasDecididas lineas(m_archivo, m_revision.codificacion, m_formato, m_contexto, almacen);
    while (lineas.Siguiente()) {
        if (!observador.Sigue(
                {m_resultado.transferidos, m_resultado.rechazados, lineas.BytesLeidos(), m_revision.bytes})) {
            m_resultado.fin = FinImportacion::Cancelada;
            return;
        }
        if (lotes.EstaLleno())
            EscribeYAdelanta(lotes, almacen, lineas);
        if (lotes.Linea() && EmpiezaLote(almacen))
            lineas.Repite();
        ++m_numeroLinea;
        const Dictamen dictamen = lineas.Decide();
        AnotaLinea(lineas.Bytes(), dictamen);
    }
    if (lineas.BytesLeidos() != m_revision.bytes)
        throw ArchivoCambiado();
}

/// The run is noted within the transaction of its first rows: neither is there without the other, whatever happens.
/// Tells whether the tables were read anew.
bool Transferencia::EmpiezaLote(Almacen& almacen) {
    if (m_opciones.seDeshace && !m_corrida) {
        m_corrida = CorridasTrabajo(*m_proceso.baseDatos)
                        .Empieza({.nombre = m_resultado.archivo,
                                  .huella = HuellaDeArchivo(m_archivo.fileName()),
                                  .bytes = m_revision.bytes},
                                 m_proceso.sysUser, m_proceso.reloj.Ahora());
    }
    return almacen.Empieza();
}

void Transferencia::AnotaFin(FinDeCorrida fin) {
    if (m_corrida)
        CorridasTrabajo(*m_proceso.baseDatos)
            .Termina(*m_corrida, fin, m_resultado.transferidos, m_resultado.rechazados);
}

/// The lines behind a batch are decided while it is written.
void Transferencia::EscribeYAdelanta(Lotes& lotes, Almacen& almacen, LineasDecididas& lineas) {
    almacen.Aparta();
    lineas.Adelanta(lotes.LargoDelSiguiente(), [&] {
        EscribeApartadas(lotes, almacen);
        lotes.Termina();
    });
}

/// Where the run ends before lines that are decided already, those have never been.
void Transferencia::EscribeLote(Lotes& lotes, Almacen& almacen) {
    almacen.Olvida(m_numeroLinea + 1);
    almacen.Aparta();
    EscribeApartadas(lotes, almacen);
}

/// Half a batch could be half of a line's rows: it is kept whole or not at all.
void Transferencia::EscribeApartadas(Lotes& lotes, Almacen& almacen) {
    QList<qint64> rechazadas;
    try {
        rechazadas = almacen.EscribeApartadas();
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
        --m_resultado.transferidos;
        Rechaza(lector.Linea(), {kClaveDuplicada});
    }
    m_numeroLinea = ultima;
}

void Transferencia::AnotaLinea(QByteArrayView bytes, const Dictamen& dictamen) {
    if (dictamen.refutacion)
        return Rechaza(bytes, dictamen.refutacion);
    ++m_resultado.transferidos;
    if (dictamen.falla)
        std::rethrow_exception(dictamen.falla);
    for (const Codigo objecion : dictamen.objeciones) {
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
        m_log.GraboLog(bytes, ClaveDe(bytes), refutacion.codigo);
    if (m_opciones.planilla)
        AnotaEnPlanilla(bytes, refutacion);
    if (m_opciones.rechazadas)
        m_opciones.rechazadas->Recibe({m_numeroLinea,
                                       bytes,
                                       m_revision.codificacion,
                                       {refutacion.codigo, refutacion.campo, Motivo(refutacion.codigo)}});
}

QString Transferencia::ClaveDe(QByteArrayView bytes) const {
    QStringList campos;
    SeparaCampos(Decodifica(bytes, m_revision.codificacion), m_formato.Campos(), campos);
    return ClaveDeLinea(campos);
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
