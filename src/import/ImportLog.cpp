#include "import/ImportLog.h"

#include "data/Base.h"
#include "family/Process.h"
#include "import/ErrorTexts.h"
#include "values/FileFailure.h"
#include "values/ObjetoUtil.h"

#include <QFile>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoClave = 28;
constexpr int kAnchoClaveSinTexto = 10;
constexpr int kBlancosSinTexto = 14;

#ifdef Q_OS_WIN
constexpr QByteArrayView kFinDeLinea("\r\n", 2);
#else
constexpr QByteArrayView kFinDeLinea("\n", 1);
#endif

/// Wanted: no separator behind `rutaRPT`, so the files lie beside the report folder and begin with its name.
QString RutaDe(const Proceso& proceso, const ClaveDeclaracion& clave, const QString& fin) {
    return proceso.rutaRPT + clave.formulario + clave.ruc.Texto() + clave.periodo.Texto() + fin;
}

} // namespace

void ArchivoLog::Agrega(QByteArrayView linea) {
    QFile archivo(m_ruta);
    const auto modo = QIODevice::Unbuffered | (m_empezado ? QIODevice::Append : QIODevice::Truncate);
    if (!archivo.open(QIODevice::WriteOnly | modo, QFile::ReadOwner | QFile::WriteOwner))
        throw FallaDeArchivo(Intento::Escribir, archivo);
    m_empezado = true;
    const qint64 antes = archivo.pos();
    QByteArray bytes = linea.toByteArray();
    bytes.append(kFinDeLinea);
    if (archivo.write(bytes) == bytes.size())
        return;
    const Error falla = FallaDeArchivo(Intento::Escribir, archivo);
    archivo.resize(antes); // no half line, on which the next one would be hung
    throw falla;
}

LogImportacion::LogImportacion(const Proceso& proceso, const ClaveDeclaracion& clave)
    : m_base(proceso.baseDatos.get())
    , m_log(RutaDe(proceso, clave, u".Log"_s))
    , m_err(RutaDe(proceso, clave, u".Err"_s)) {}

void LogImportacion::GraboLog(QByteArrayView linea, const QString& clave, Codigo codigo) {
    Anota([&] { m_log.Agrega(linea); });
    Anota([&] { m_err.Agrega(LineaDeLista(clave, codigo).toUtf8()); });
}

template <typename Escritura>
void LogImportacion::Anota(const Escritura& escritura) {
    try {
        escritura();
    } catch (const Error& error) {
        if (!m_falla.isEmpty())
            return;
        AnotaDetalle(error);
        m_falla = u"No se pudieron guardar todas las líneas rechazadas. "_s + error.Texto();
    }
}

/// Wanted: a code without a row in `ERROR` gets the general text and a shorter key, even when its text is fixed
/// here: the list says what the table says.
QString LogImportacion::LineaDeLista(const QString& clave, Codigo codigo) const {
    Registros fila = m_base->Lee(u"SELECT DescError FROM ERROR WHERE CodError=?"_s, {QString(codigo)});
    if (!fila.Siguiente())
        return clave.left(kAnchoClaveSinTexto).leftJustified(kAnchoClaveSinTexto + kBlancosSinTexto) + kOtroError;
    const QString fijo = TextoFijo(codigo);
    return ObjetoUtil::AlineaIzquierda(clave.left(kAnchoClave), kAnchoClave) + u' ' +
           (fijo.isEmpty() ? fila.Texto(0) : fijo);
}

} // namespace xa518
