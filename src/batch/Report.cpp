#include "batch/Report.h"

#include "batch/ExitCode.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTextStream>

#include <utility>

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

/// The boxes that hold an amount or a count, for whoever reckons with them; what the others hold is a code or a text.
QJsonObject Cifras(const Informe& informe) {
    static const QSet<QString> cifras = {u"401"_s, u"402"_s, u"403"_s, u"404"_s, u"405"_s, u"410"_s,
                                         u"501"_s, u"502"_s, u"503"_s, u"510"_s, u"511"_s, u"512"_s,
                                         u"513"_s, u"514"_s, u"515"_s, u"516"_s, u"517"_s};
    QJsonObject objeto;
    for (const CasillaGuardada& casilla : informe.casillas) {
        bool esEntero = false;
        const qint64 valor = casilla.valor.toLongLong(&esEntero);
        if (esEntero && cifras.contains(casilla.casilla))
            objeto.insert(casilla.casilla, valor);
    }
    return objeto;
}

QJsonValue TextoONulo(const QString& texto) {
    return texto.isEmpty() ? QJsonValue(QJsonValue::Null) : QJsonValue(texto);
}

QJsonObject LineaRechazada(const FilaPlanilla& fila) {
    const bool tieneCampo = !fila.campo.isEmpty();
    return {{u"archivo"_s, fila.archivo},
            {u"linea"_s, fila.linea},
            {u"campo"_s, TextoONulo(fila.campo)},
            {u"valor"_s, tieneCampo ? QJsonValue(fila.valor) : QJsonValue(QJsonValue::Null)},
            {u"codigo"_s, QString(fila.codigo)},
            {u"motivo"_s, fila.motivo}};
}

QJsonArray SinLugar(const QList<FilaSinLugar>& filas) {
    QJsonArray lista;
    for (const FilaSinLugar& fila : filas)
        lista.append(QJsonObject{{u"fila"_s, fila.fila}, {u"motivo"_s, fila.motivo}});
    return lista;
}

QString EnUnaLinea(const QJsonObject& objeto) {
    return QString::fromUtf8(QJsonDocument(objeto).toJson(QJsonDocument::Compact));
}

/// The last member of an object that is open yet, a line at a time: a month may be refused whole.
void EscribeRechazadas(const QList<FilaPlanilla>& filas, QTextStream& salida) {
    salida << u",\"lineas_rechazadas\":["_s;
    bool primera = true;
    for (const FilaPlanilla& fila : filas) {
        salida << (std::exchange(primera, false) ? QString() : u","_s) << EnUnaLinea(LineaRechazada(fila));
    }
    salida << u']';
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

void EscribeExportado(const Exportado& exportado, QTextStream& salida) {
    salida << u"%1 líneas exportadas\n"_s.arg(exportado.lineas);
    for (const auto& [fila, motivo] : exportado.sinLugar)
        salida << u"Sin lugar en los archivos: "_s << fila << u": "_s << motivo << u'\n';
}

void EscribeImportacion(const Informe& informe, QTextStream& salida) {
    if (informe.transferidos)
        salida << u"%1 Transferidos, %2 Rechazados\n"_s.arg(*informe.transferidos).arg(informe.rechazados.value_or(0));
}

} // namespace

bool Informe::SeDetuvo() const {
    return codigo == kSalidaRechazado || codigo == kSalidaFallo || codigo == kSalidaLineas || codigo >= kSalidaServidor;
}

void EscribeMensajes(const Informe& informe, QTextStream& salida) {
    for (const Mensaje& mensaje : informe.mensajes)
        salida << mensaje.texto << u'\n';
}

void EscribeTexto(const Informe& informe, QTextStream& salida) {
    EscribeImportacion(informe, salida);
    if (informe.declaraciones)
        EscribeLista(*informe.declaraciones, salida);
    if (informe.exportado)
        EscribeExportado(*informe.exportado, salida);
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
        {u"codigo"_s, informe.codigo},
        {u"transferidos"_s, Numero(informe.transferidos)},
        {u"rechazados"_s, Numero(informe.rechazados)},
        {u"inconsistencias"_s, informe.inconsistencias
                                   ? QJsonValue(QJsonArray::fromStringList(*informe.inconsistencias))
                                   : QJsonValue(QJsonValue::Null)},
        {u"estado"_s, Numero(informe.estado)},
        {u"casillas"_s, Casillas(informe)},
        {u"cifras"_s, Cifras(informe)},
        {u"archivos"_s, QJsonArray::fromStringList(informe.archivos)},
        {u"mensajes"_s, Mensajes(informe)},
    };
    if (informe.declaraciones)
        objeto.insert(u"declaraciones"_s, Declaraciones(*informe.declaraciones));
    if (informe.rechazado)
        objeto.insert(u"rechazado"_s, Rechazado(*informe.rechazado));
    if (informe.exportado) {
        objeto.insert(u"exportadas"_s, informe.exportado->lineas);
        objeto.insert(u"sin_lugar"_s, SinLugar(informe.exportado->sinLugar));
    }
    const QString texto = EnUnaLinea(objeto);
    salida << QStringView(texto).chopped(1);
    if (informe.lineasRechazadas)
        EscribeRechazadas(*informe.lineasRechazadas, salida);
    salida << u"}\n"_s;
}

} // namespace xa518
