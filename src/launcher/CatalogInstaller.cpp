#include "launcher/CatalogInstaller.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "launcher/CsvTable.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kCorrel = u"correl"_s;
const QString kCompartido = u":/catalogo"_s;

QHash<QString, QString> PorColumna(const QStringList& columnas, const QStringList& fila) {
    QHash<QString, QString> valores;
    for (qsizetype i = 0; i < columnas.size(); ++i)
        valores.insert(columnas[i], fila[i]);
    return valores;
}

QString SinBlancosFinales(QString texto) {
    while (texto.endsWith(u' '))
        texto.chop(1);
    return texto;
}

bool Iguales(const Registros& fila, const QVariantList& valores) {
    for (int i = 0; i < valores.size(); ++i) {
        if (fila.Texto(i) != valores[i].toString())
            return false;
    }
    return true;
}

} // namespace

InstaladorCatalogo::Resumen InstaladorCatalogo::Instala(const Formularios& formularios) {
    m_resumen = {};
    Transaccion transaccion = m_base->Comienza();
    InstalaParam(CatalogosComunes(), kCompartido);
    for (const Formulario& formulario : formularios)
        InstalaParam(formulario.catalogos, formulario.catalogo);
    InstalaErrores();
    InstalaUsuarios();
    transaccion.Confirma();
    return m_resumen;
}

void InstaladorCatalogo::InstalaParam(const QList<Catalogado>& catalogos, const QString& carpeta) {
    const Sentencias sentencias{
        u"SELECT Funcion, correl_param FROM PARAM WHERE Numero = ? AND Argumento = ?"_s,
        u"INSERT INTO PARAM (Funcion, correl_param, Numero, Argumento) VALUES (?, ?, ?, ?)"_s,
        u"UPDATE PARAM SET Funcion = ?, correl_param = ? WHERE Numero = ? AND Argumento = ?"_s,
    };
    for (const Catalogado& catalogo : catalogos) {
        const QStringList columnas = catalogo.argumento.Columnas() + catalogo.funcion.Columnas() + QStringList{kCorrel};
        for (const QStringList& fila : LeeArchivoCsv(carpeta + u'/' + catalogo.archivo, columnas)) {
            const QHash<QString, QString> valores = PorColumna(columnas, fila);
            Pon(sentencias, {catalogo.numero, SinBlancosFinales(catalogo.argumento.Compone(valores))},
                {catalogo.funcion.Compone(valores), valores.value(kCorrel).toInt()});
        }
    }
}

void InstaladorCatalogo::InstalaErrores() {
    const Sentencias sentencias{
        u"SELECT DescError FROM ERROR WHERE CodError = ?"_s,
        u"INSERT INTO ERROR (DescError, CodError) VALUES (?, ?)"_s,
        u"UPDATE ERROR SET DescError = ? WHERE CodError = ?"_s,
    };
    for (const QStringList& fila : LeeArchivoCsv(kCompartido + u"/errors.csv"_s, {u"codigo"_s, u"texto"_s}))
        Pon(sentencias, {fila[0]}, {fila[1]});
}

void InstaladorCatalogo::InstalaUsuarios() {
    const Sentencias sentencias{
        u"SELECT Tipo FROM CLAVES WHERE Usuario = ?"_s,
        u"INSERT INTO CLAVES (Tipo, Usuario) VALUES (?, ?)"_s,
        {},
    };
    for (const QStringList& fila : LeeArchivoCsv(kCompartido + u"/users.csv"_s, {u"usuario"_s, u"tipo"_s}))
        Pon(sentencias, {fila[0]}, {fila[1]});
}

void InstaladorCatalogo::Pon(const Sentencias& sentencias, const QVariantList& clave, const QVariantList& valores) {
    Registros fila = m_base->Lee(sentencias.lee, clave);
    if (!fila.Siguiente()) {
        m_base->Ejecuta(sentencias.agrega, valores + clave);
        ++m_resumen.nuevas;
    } else if (sentencias.cambia.isEmpty() || Iguales(fila, valores)) {
        ++m_resumen.conservadas;
    } else {
        m_base->Ejecuta(sentencias.cambia, valores + clave);
        ++m_resumen.cambiadas;
    }
}

} // namespace xa518
