#include "launcher/Schema.h"

#include "data/Base.h"
#include "data/SchemaVersion.h"
#include "data/Transaction.h"
#include "family/SchemaSteps.h"

#include <QFile>
#include <QList>
#include <QStringList>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString LeeSql(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw ErrorBase(NumeroError::ArchivoNoEncontrado, u"No se puede leer '%1'."_s.arg(ruta));
    return QString::fromUtf8(archivo.readAll());
}

QStringList SentenciasDe(const QString& sql) {
    QStringList sentencias;
    QString sentencia;
    for (const QString& cruda : sql.split(u'\n')) {
        const QString linea = cruda.trimmed();
        if (linea.startsWith("--"_L1) || linea.isEmpty())
            continue;
        sentencia += linea + u'\n';
        if (linea.endsWith(u';'))
            sentencias.append(std::exchange(sentencia, QString()));
    }
    if (!sentencia.isEmpty())
        sentencias.append(sentencia);
    return sentencias;
}

/// The version is read again inside the transaction: two installers may run at once.
void DaPaso(Base& base, const PasoDeEsquema& paso) {
    Transaccion transaccion = base.Comienza();
    if (VersionDe(base) >= paso.version)
        return;
    for (const QString& sentencia : SentenciasDe(LeeSql(paso.ruta)))
        base.Ejecuta(sentencia);
    base.PonVersionDelEsquema(paso.version);
    transaccion.Confirma();
}

} // namespace

EstadoEsquema Esquema::Aplica(Base& base) const {
    const QList<PasoDeEsquema> pasos = PasosDelEsquema(m_carpetas);
    const int inicial = VersionDe(base);
    const int ultima = pasos.isEmpty() ? 0 : pasos.last().version;
    if (inicial > ultima)
        return {ResultadoEsquema::MasNuevo, inicial, 0, {}};
    if (inicial == ultima)
        return {ResultadoEsquema::Vigente, inicial, 0, {}};
    try {
        for (const PasoDeEsquema& paso : pasos)
            DaPaso(base, paso);
    } catch (const ErrorBase& error) {
        AnotaDetalle(error);
        return {ResultadoEsquema::Fallido, VersionDe(base), error.Numero(), error.Texto()};
    }
    return {inicial == 0 ? ResultadoEsquema::Creado : ResultadoEsquema::Actualizado, ultima, 0, {}};
}

} // namespace xa518
