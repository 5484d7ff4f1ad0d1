#include "reports/SpoolRegistry.h"

#include "data/Transaction.h"
#include "family/Process.h"
#include "platform/Clock.h"
#include "values/Decimal.h"
#include "values/Format.h"

#include <QDir>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The value of a query of one number kept as text; 0 without a row and for null.
Decimal Ultimo(Base& base, const QString& sql, const QVariantList& valores = {}) {
    Registros fila = base.Lee(sql, valores);
    return fila.Siguiente() ? Decimal::Valor(fila.Texto(0)) : Decimal();
}

bool ExisteNombre(Base& base, const QString& archivo) {
    return base.Lee(u"SELECT Archivo FROM SPOOL WHERE Archivo = ?"_s, {archivo}).Siguiente();
}

bool EstaTomado(const EntornoRegistro& entorno, const QString& archivo) {
    return ExisteNombre(entorno.base, archivo) || QFileInfo::exists(RutaDeInforme(entorno.rutaRPT, archivo));
}

/// Numbered across all reports of all modules. The largest name is compared as text, so once a name of another shape
/// stands in the table the numbers start anew: names already taken are passed over. A file of which the table knows
/// nothing counts too: a base that was put back, or the copy of one, may still name it.
QString SiguienteArchivo(const EntornoRegistro& entorno) {
    const Decimal uno = Decimal::DeEntero(1);
    Decimal numero = Ultimo(entorno.base, u"SELECT max(left(Archivo,8)) as SecRep FROM SPOOL"_s) + uno;
    QString archivo = Format(numero, u"00000000") + u".PRN"_s;
    while (EstaTomado(entorno, archivo)) {
        numero = numero + uno;
        archivo = Format(numero, u"00000000") + u".PRN"_s;
    }
    return archivo;
}

/// For who may not register it: no registered report is named so.
QString NombreLocal(const QString& rutaRPT) {
    int numero = 1;
    QString archivo;
    do {
        archivo = u"L%1.PRN"_s.arg(numero++, 7, 10, QChar(u'0'));
    } while (QFileInfo::exists(RutaDeInforme(rutaRPT, archivo)));
    return archivo;
}

} // namespace

EntornoRegistro::EntornoRegistro(const Proceso& proceso)
    : EntornoRegistro(*proceso.baseDatos, proceso.reloj, proceso.rutaRPT, proceso.sysUser) {}

QString NuevoReporte(const EntornoRegistro& entorno, const QString& codigo, int tipoDoc, const QString& doc) {
    Base& base = entorno.base;
    if (base.SoloLectura())
        return NombreLocal(entorno.rutaRPT);
    Transaccion transaccion = base.Comienza();
    const Decimal ultimaSec = Ultimo(base, u"SELECT max(Secuencia) as SecTipo FROM SPOOL Where CodRep = ?"_s, {codigo});
    QString archivo = SiguienteArchivo(entorno);
    Registro fila(base.Describe(u"SPOOL"_s));
    fila.Pon(u"CodRep", codigo)
        .Pon(u"Secuencia", Format(ultimaSec + Decimal::DeEntero(1), u"000000"))
        .Pon(u"Archivo", archivo)
        .Pon(u"Fecha", entorno.reloj.Ahora().toString(u"yyyy-MM-dd HH:mm:ss"_s))
        .Pon(u"Usuario", entorno.usuario)
        .Pon(u"tip_doc_d", tipoDoc)
        .Pon(u"Doc_id_d", doc);
    base.Agrega(fila);
    transaccion.Confirma();
    return archivo;
}

QString RutaDeInforme(const QString& rutaRPT, const QString& archivo) {
    return rutaRPT + QDir::separator() + archivo;
}

} // namespace xa518
