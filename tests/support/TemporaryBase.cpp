#include "support/TemporaryBase.h"

#include "data/RecordChecksum.h"
#include "data/ServerControl.h"
#include "data/Transaction.h"

#include <QRegularExpression>

namespace xa518::prueba {

namespace {

/// Name and type of a table's columns that can't be null.
QString SqlDeExigidas() {
    if (!HayServidorDePrueba())
        return u"SELECT name, type FROM pragma_table_info(?) WHERE [notnull]=1"_s;
    return u"SELECT attname::text, upper(pg_catalog.format_type(atttypid, NULL)) FROM pg_catalog.pg_attribute"
           " WHERE attrelid = pg_catalog.to_regclass(?) AND attnum > 0 AND attnotnull AND attname::text <> 'alta'"_s;
}

bool EstaEn(const QMap<QString, QVariant>& valores, const QString& columna) {
    const QStringList puestas = valores.keys();
    return puestas.contains(columna, Qt::CaseInsensitive);
}

} // namespace

std::unique_ptr<Base> CreaBase(const QString& ruta) {
    std::unique_ptr<Base> base = Base::Crea(ruta);
    const QDir fuentes(QStringLiteral(XA518_SOURCE_DIR));
    const QStringList pasos{u"family/schema/0001_shared_tables.sql"_s, u"form518/schema/0002_form_0518.sql"_s,
                            u"family/schema/0003_change_log.sql"_s, u"form518/schema/0004_unsaved.sql"_s,
                            u"form518/schema/0005_runs_and_last_delete.sql"_s};
    const QRegularExpression comentario(u"^--.*$"_s, QRegularExpression::MultilineOption);
    Transaccion transaccion = base->Comienza(); // one wait for the disk instead of one a table
    for (const QString& paso : pasos) {
        const QString sql = QString::fromUtf8(BytesDe(fuentes.filePath(paso))).remove(comentario);
        for (const QString& sentencia : sql.split(u";\n"_s)) {
            if (!sentencia.trimmed().isEmpty())
                base->Ejecuta(sentencia);
        }
    }
    transaccion.Confirma();
    return base;
}

BaseTemporal::BaseTemporal() : m_base(m_enServidor ? Base::Abre(Ruta()) : CreaBase(Ruta())) {}

void BaseTemporal::Param(const QString& numero, const QString& argumento, const QString& funcion, int correl) const {
    m_base->Ejecuta(u"INSERT INTO PARAM VALUES (?,?,?,?)"_s, {numero, argumento, funcion, correl});
}

void BaseTemporal::Agrega(const QString& tabla, QMap<QString, QVariant> valores) const {
    Registros exigidas = m_base->Lee(SqlDeExigidas(), {tabla});
    while (exigidas.Siguiente()) {
        const QString columna = exigidas.Texto(0);
        if (!EstaEn(valores, columna))
            valores[columna] = exigidas.Texto(1) == u"INTEGER"                              ? QVariant(6)
                               : columna.compare(u"Formulario"_s, Qt::CaseInsensitive) == 0 ? QVariant(u"0518"_s)
                                                                                            : QVariant(u"-"_s);
    }
    m_base->Ejecuta(u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(tabla, valores.keys().join(u','),
                                                             QStringList(valores.size(), u"?"_s).join(u',')),
                    valores.values());
}

void BaseTemporal::AlBorrar(const QString& tabla, const QString& sql) const {
    if (!m_enServidor) {
        m_base->Ejecuta(u"CREATE TRIGGER al_borrar_%1 BEFORE DELETE ON %1 BEGIN %2; END"_s.arg(tabla, sql));
        return;
    }
    MandoDeServidor(Ruta(), MandoDeServidor::Lugar::EnLaBase)
        .Pide(
            u"CREATE FUNCTION familia.al_borrar_%1() RETURNS trigger LANGUAGE plpgsql AS $$BEGIN %2; RETURN OLD; END$$;"
            "CREATE TRIGGER al_borrar BEFORE DELETE ON familia.%1 FOR EACH ROW EXECUTE FUNCTION"
            " familia.al_borrar_%1()"_s.arg(tabla, sql));
}

QStringList BaseTemporal::Filas(const QString& sql, const QVariantList& valores) const {
    QStringList filas;
    Registros registros = m_base->Lee(sql, valores);
    // On the server the last column of a whole row only numbers it.
    const bool conNumero = HayServidorDePrueba() && sql.trimmed().startsWith(u"SELECT * "_s);
    const int columnas = registros.Columnas() - (conNumero ? 1 : 0);
    while (registros.Siguiente()) {
        QStringList campos;
        for (int i = 0; i < columnas; ++i)
            campos.append(registros.EsNulo(i) ? u"<null>"_s : registros.Texto(i));
        filas.append(campos.join(u'|'));
    }
    return filas;
}

QString Funcion(const QList<Pieza>& piezas) {
    QString funcion;
    for (const Pieza& pieza : piezas) {
        funcion = funcion.leftJustified(pieza.posicion - 1);
        funcion.replace(pieza.posicion - 1, pieza.texto.size(), pieza.texto);
    }
    return funcion;
}

void AgregaCabecera(Base& base, const QString& ruc, const QString& periodo, int estado) {
    Registro cabecera(base.Describe(u"CAB"_s));
    cabecera.Pon(u"Doc_id_d", ruc).Pon(u"tip_doc_d", 6).Pon(u"periodo", periodo).Pon(u"Formulario", u"0518"_s);
    cabecera.Pon(u"estado", estado).Pon(u"rectifica", u"0"_s).Pon(u"fec_pro", u"20/11/2026"_s);
    constexpr int numericas = 5;
    AgregaConChecksum(base, cabecera, numericas);
}

QString Retrato(Base& base) {
    QString retrato;
    for (const QString& tabla : kTablas) {
        const auto columnas = static_cast<int>(base.Describe(tabla).columnas.size());
        Registros filas = base.Lee(u"SELECT * FROM %1 ORDER BY %2"_s.arg(tabla, base.NumeroDeFila(tabla)));
        while (filas.Siguiente()) {
            for (int i = 0; i < columnas; ++i)
                retrato += filas.Texto(i) + u'|';
            retrato += u'\n';
        }
    }
    return retrato;
}

void RompeIndice(const QString& ruta) {
    const auto base = Base::Abre(ruta);
    base->Ejecuta(u"INSERT INTO CLAVES VALUES ('JEFE', '0')"_s);
    Registros fila = base->Lee(u"SELECT rootpage FROM sqlite_master WHERE name = 'sqlite_autoindex_CLAVES_1'"_s);
    QFile archivo(ruta);
    if (!fila.Siguiente() || !archivo.open(QIODevice::ReadWrite) || !archivo.seek((fila.Entero(0) - 1) * 4096 + 3))
        throw std::runtime_error("no index to break");
    archivo.write(QByteArray(2, '\0')); // the page's count of cells
}

} // namespace xa518::prueba
