#include "DataFixture.h"

namespace xa518 {

using namespace Qt::StringLiterals;

BaseDePrueba::BaseDePrueba() : m_base(Base::Crea(Ruta(u"prueba.db"_s))) {}

void BaseDePrueba::Corre(const QStringList& sentencias) {
    for (const QString& sentencia : sentencias)
        m_base->Ejecuta(sentencia);
}

void BaseDePrueba::CreaCatalogo() {
    Corre({u"CREATE TABLE PARAM (Numero TEXT COLLATE NOCASE, Argumento TEXT COLLATE NOCASE, Funcion TEXT, "
           "correl_param INTEGER, PRIMARY KEY (Numero, Argumento))"_s,
           u"CREATE TABLE ERROR (CodError TEXT, DescError TEXT)"_s, u"CREATE TABLE CLAVES (Usuario TEXT, Tipo TEXT)"_s,
           u"CREATE TABLE CONT (Tip_doc_d INTEGER, Doc_id_d TEXT, Nombre TEXT, Usuario TEXT, Tipo_Ingreso INTEGER)"_s});
}

void BaseDePrueba::Param(const QString& numero, const QString& argumento, const QString& funcion) {
    m_base->Ejecuta(u"INSERT INTO PARAM VALUES (?,?,?,0)"_s, {numero, argumento, funcion});
}

QString BaseDePrueba::Lista(const QString& sql, const QVariantList& valores) {
    QStringList lista;
    Registros filas = m_base->Lee(sql, valores);
    while (filas.Siguiente())
        lista.append(filas.EsNulo(0) ? u"NULL"_s : filas.Texto(0));
    return lista.join(u'|');
}

} // namespace xa518
