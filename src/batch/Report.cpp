#include "batch/Report.h"

#include "batch/ExitCode.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QJsonValue Numero(const std::optional<int>& numero) {
    return numero ? QJsonValue(*numero) : QJsonValue(QJsonValue::Null);
}

QJsonObject Casillas(const Informe& informe) {
    QJsonObject objeto;
    for (const CasillaGuardada& casilla : informe.casillas)
        objeto.insert(casilla.casilla, casilla.valor);
    return objeto;
}

QJsonArray Mensajes(const Informe& informe) {
    QJsonArray lista;
    for (const Mensaje& mensaje : informe.mensajes)
        lista.append(mensaje.texto);
    return lista;
}

QJsonArray Declaraciones(const QList<FilaLista>& filas) {
    QJsonArray lista;
    for (const FilaLista& fila : filas) {
        QJsonObject objeto{{u"ruc"_s, fila.ruc},
                           {u"nombre"_s, fila.nombre},
                           {u"periodo"_s, fila.periodo},
                           {u"estado"_s, fila.estado.toInt()},
                           {u"rectifica"_s, fila.rectifica}};
        if (!fila.correl.isEmpty()) {
            objeto.insert(u"correl"_s, fila.correl);
            objeto.insert(u"control"_s, fila.control);
            objeto.insert(u"norden"_s, fila.norden);
            objeto.insert(u"fec_env"_s, fila.fecEnv);
        }
        lista.append(objeto);
    }
    return lista;
}

QJsonObject Rechazado(const ArchivoRechazado& rechazado) {
    QJsonObject objeto{{u"archivo"_s, rechazado.archivo},
                       {u"motivo"_s, rechazado.motivo},
                       {u"campos_esperados"_s, rechazado.camposEsperados}};
    if (rechazado.linea > 0) {
        objeto.insert(u"linea"_s, rechazado.linea);
        objeto.insert(u"lineas"_s, rechazado.lineas);
    }
    if (rechazado.linea > 0 && rechazado.campos >= 0)
        objeto.insert(u"campos"_s, rechazado.campos);
    return objeto;
}

void EscribeLista(const QList<FilaLista>& filas, QTextStream& salida) {
    if (filas.isEmpty())
        salida << u"No hay declaraciones.\n"_s;
    for (const FilaLista& fila : filas) {
        salida << fila.ruc << u"  "_s << fila.periodo << u"  estado "_s << fila.estado;
        if (!fila.correl.isEmpty())
            salida << u"  copia "_s << fila.correl << u"  control "_s << fila.control << u"  orden "_s << fila.norden
                   << u"  enviada "_s << fila.fecEnv;
        salida << u"  "_s << fila.nombre << u'\n';
    }
}

void EscribeImportacion(const Informe& informe, QTextStream& salida) {
    if (informe.transferidos)
        salida << u"%1 Transferidos, %2 Rechazados\n"_s.arg(*informe.transferidos).arg(informe.rechazados.value_or(0));
}

} // namespace

bool Informe::SeDetuvo() const {
    return codigo == kSalidaRechazado || codigo == kSalidaFallo || codigo >= kSalidaServidor;
}

void EscribeMensajes(const Informe& informe, QTextStream& salida) {
    for (const Mensaje& mensaje : informe.mensajes)
        salida << mensaje.texto << u'\n';
}

void EscribeTexto(const Informe& informe, QTextStream& salida) {
    EscribeImportacion(informe, salida);
    if (informe.declaraciones)
        EscribeLista(*informe.declaraciones, salida);
    for (const CasillaGuardada& casilla : informe.casillas)
        salida << u"Casilla %1  %2\n"_s.arg(casilla.casilla, casilla.valor);
    if (informe.estado)
        salida << u"Estado %1\n"_s.arg(*informe.estado);
    for (const QString& linea : informe.inconsistencias.value_or(QStringList()))
        salida << u"Inconsistencia: "_s << linea << u'\n';
    for (const QString& archivo : informe.archivos)
        salida << u"Archivo "_s << archivo << u'\n';
    if (!informe.SeDetuvo())
        EscribeMensajes(informe, salida);
}

void EscribeJson(const Informe& informe, QTextStream& salida) {
    QJsonObject objeto{
        {u"transferidos"_s, Numero(informe.transferidos)},
        {u"rechazados"_s, Numero(informe.rechazados)},
        {u"inconsistencias"_s, informe.inconsistencias
                                   ? QJsonValue(QJsonArray::fromStringList(*informe.inconsistencias))
                                   : QJsonValue(QJsonValue::Null)},
        {u"estado"_s, Numero(informe.estado)},
        {u"casillas"_s, Casillas(informe)},
        {u"archivos"_s, QJsonArray::fromStringList(informe.archivos)},
        {u"mensajes"_s, Mensajes(informe)},
    };
    if (informe.declaraciones)
        objeto.insert(u"declaraciones"_s, Declaraciones(*informe.declaraciones));
    if (informe.rechazado)
        objeto.insert(u"rechazado"_s, Rechazado(*informe.rechazado));
    salida << QString::fromUtf8(QJsonDocument(objeto).toJson(QJsonDocument::Compact)) << u'\n';
}

} // namespace xa518
