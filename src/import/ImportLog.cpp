#include "import/ImportLog.h"

#include "data/Base.h"
#include "family/Process.h"
#include "import/ErrorTexts.h"
#include "values/FileFailure.h"
#include "values/ObjetoUtil.h"

#include <QFile>

#include <filesystem>
#include <fstream>

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
    QByteArray bytes = linea.toByteArray();
    bytes.append(kFinDeLinea);
    if (!m_empezado || !AgregaDeprisa(bytes))
        AgregaConMotivo(bytes);
}

/// With no more calls to the system than it takes, since a whole month may be refused. False when it can't, and then
/// the file is as it was.
bool ArchivoLog::AgregaDeprisa(const QByteArray& bytes) const {
    std::fstream archivo(std::filesystem::path(m_ruta.toStdU16String()),
                         std::ios::in | std::ios::out | std::ios::binary | std::ios::ate);
    const std::streamoff antes = archivo.tellp();
    if (!archivo.is_open() || antes < 0)
        return false;
    archivo.write(bytes.constData(), bytes.size());
    archivo.close();
    if (archivo)
        return true;
    QFile::resize(m_ruta, antes);
    return false;
}

/// Tells what is wrong.
void ArchivoLog::AgregaConMotivo(const QByteArray& bytes) {
    QFile archivo(m_ruta);
    const auto modo = QIODevice::Unbuffered | (m_empezado ? QIODevice::Append : QIODevice::Truncate);
    if (!archivo.open(QIODevice::WriteOnly | modo, QFile::ReadOwner | QFile::WriteOwner))
        throw FallaDeArchivo(Intento::Escribir, archivo);
    m_empezado = true;
    const qint64 antes = archivo.pos();
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
QString LogImportacion::LineaDeLista(const QString& clave, Codigo codigo) {
    const std::optional<QString> texto = TextoDe(codigo);
    if (!texto)
        return clave.left(kAnchoClaveSinTexto).leftJustified(kAnchoClaveSinTexto + kBlancosSinTexto) + kOtroError;
    return ObjetoUtil::AlineaIzquierda(clave.left(kAnchoClave), kAnchoClave) + u' ' + *texto;
}

/// Read once in a run.
std::optional<QString> LogImportacion::TextoDe(const QString& codigo) {
    const auto leido = m_textos.constFind(codigo);
    if (leido != m_textos.cend())
        return *leido;
    std::optional<QString> texto;
    Registros fila = m_base->Lee(u"SELECT DescError FROM ERROR WHERE CodError=?"_s, {codigo});
    if (fila.Siguiente())
        texto = fila.Texto(0);
    if (const QString fijo = TextoFijo(Codigo(codigo.toLatin1())); texto && !fijo.isEmpty())
        texto = fijo;
    return *m_textos.insert(codigo, texto);
}

} // namespace xa518
