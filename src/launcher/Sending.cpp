#include "launcher/Sending.h"

#include "data/Base.h"
#include "data/RecordChecksum.h"
#include "data/Transaction.h"
#include "data/WorkLock.h"
#include "launcher/DeclarationList.h"
#include "platform/Clock.h"
#include "values/Dates.h"

#include <QHash>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QStringList kTablas = {u"CAB"_s, u"DET"_s, u"F518PCAB"_s, u"F518PDET"_s, u"F518PDETVC"_s, u"F518PDETCP"_s};

/// The last control number that was given is the running number of this row, so that none comes twice, not even after
/// its declaration is deleted.
const QString kCatalogoEnvios = u"999"_s;
constexpr qint64 kAntesDelPrimerControl = 10'000'000;
constexpr qint64 kUltimoControl = 99'999'999;

/// The values that the sent copy has of its own, by column name in lower case.
using Sello = QHash<QString, QVariant>;

Veredicto Rechaza(const QString& motivo, const ClaveDeclaracion& clave) {
    return Veredicto::Critico(motivo.arg(clave.ruc, clave.periodo));
}

/// For each column of the target the position of the source's column of that name; -1 for one that the seal fills.
QList<int> LugaresEn(const Tabla& origen, const Tabla& destino, const Sello& sello) {
    QList<int> lugares;
    for (const Columna& columna : destino.columnas)
        lugares.append(sello.contains(columna.nombre.toLower()) ? -1 : origen.Indice(columna.nombre));
    return lugares;
}

void Copia(Base& base, const ClaveDeclaracion& clave, const QString& tabla, const Sello& sello) {
    const Tabla& destino = base.Describe(u'H' + tabla);
    const QList<int> lugares = LugaresEn(base.Describe(tabla), destino, sello);
    Registro copia(destino);
    Registros filas =
        base.Lee(u"SELECT * FROM "_s + tabla + u' ' + clave.Condicion() + u" ORDER BY rowid"_s, clave.Valores());
    while (filas.Siguiente()) {
        for (int i = 0; i < lugares.size(); ++i)
            copia.Pon(i, lugares[i] < 0 ? sello.value(destino.columnas[i].nombre.toLower()) : filas.Valor(lugares[i]));
        AgregaConChecksum(base, copia);
    }
}

void Mueve(Base& base, const ClaveDeclaracion& clave, const QString& tabla, const Sello& sello) {
    Copia(base, clave, tabla, sello);
    base.Ejecuta(u"DELETE * FROM "_s + tabla + u' ' + clave.Condicion(), clave.Valores());
}

qint64 MayorNumero(Registros filas) {
    qint64 mayor = 0;
    while (filas.Siguiente())
        mayor = std::max(mayor, filas.Texto(0).toLongLong());
    return mayor;
}

} // namespace

Veredicto Envio::Valida(const ClaveDeclaracion& clave) const {
    const TrabajoUnico trabajo(*m_base);
    return Revisa(clave);
}

ResultadoEnvio Envio::Envia(const ClaveDeclaracion& clave) {
    const TrabajoUnico trabajo(*m_base);
    Transaccion transaccion = m_base->Comienza();
    if (Veredicto veredicto = Revisa(clave); !veredicto)
        return {std::move(veredicto), {}, {}};
    const QString correl = SiguienteCorrel(clave);
    const QString control = SiguienteControl();
    const Sello sello{{u"correl"_s, correl},
                      {u"control"_s, control},
                      {u"norden"_s, u"0"_s},
                      {u"estado"_s, kEstadoEnviada},
                      {u"fec_env"_s, FormatFecha(m_reloj->Hoy(), u"dd/mm/yyyy")}};
    for (const QString& tabla : kTablas)
        Mueve(*m_base, clave, tabla, sello);
    transaccion.Confirma();
    return {Veredicto::Bien(), correl, control};
}

Veredicto Envio::Revisa(const ClaveDeclaracion& clave) const {
    Registros cabecera = m_base->Lee(u"SELECT estado FROM CAB "_s + clave.Condicion(), clave.Valores());
    if (!cabecera.Siguiente())
        return Rechaza(u"No existe una declaración registrada del RUC %1 y el período %2."_s, clave);
    if (cabecera.Entero(0) == kEstadoInconsistente)
        return Rechaza(u"La declaración del RUC %1 y el período %2 fue grabada con inconsistencias: no puede ser"
                       " enviada."_s,
                       clave);
    return Veredicto::Bien();
}

/// Deleting a sent declaration leaves its cash-sale rows behind: their numbers count too, or the next copy would meet
/// them.
QString Envio::SiguienteCorrel(const ClaveDeclaracion& clave) const {
    qint64 mayor = 0;
    for (const QString& tabla : kTablas)
        mayor = std::max(mayor,
                         MayorNumero(m_base->Lee(u"SELECT DISTINCT correl FROM H"_s + tabla + u' ' + clave.Condicion(),
                                                 clave.Valores())));
    return QString::number(mayor + 1);
}

QString Envio::SiguienteControl() {
    const QVariantList clave{kCatalogoEnvios, kNumFormulario};
    const qint64 ultimo = std::max(
        {kAntesDelPrimerControl, MayorNumero(m_base->Lee(u"SELECT max(control) FROM HCAB"_s)),
         MayorNumero(m_base->Lee(u"SELECT correl_param FROM PARAM WHERE Numero = ? AND Argumento = ?"_s, clave))});
    if (ultimo >= kUltimoControl)
        throw Desbordamiento();
    const qint64 control = ultimo + 1;
    if (m_base->Ejecuta(u"UPDATE PARAM SET correl_param = ? WHERE Numero = ? AND Argumento = ?"_s,
                        QVariantList{control} + clave) == 0)
        m_base->Ejecuta(u"INSERT INTO PARAM (correl_param, Numero, Argumento, Funcion) VALUES (?, ?, ?, ?)"_s,
                        QVariantList{control} + clave + QVariantList{u"NUMERO DE CONTROL"_s});
    return QString::number(control);
}

} // namespace xa518
