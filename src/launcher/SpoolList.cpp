#include "launcher/SpoolList.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "reports/SpoolReport.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString Mostrada(const QString& fecha) {
    const QDateTime momento = QDateTime::fromString(fecha, Qt::ISODate);
    return momento.isValid() ? momento.toString(u"dd/MM/yyyy HH:mm"_s) : fecha;
}

} // namespace

QString Informes::Titulo(const QString& codigo) const {
    for (const Formulario& formulario : m_formularios) {
        if (const auto titulo = formulario.informes.constFind(codigo); titulo != formulario.informes.cend())
            return *titulo;
    }
    return codigo;
}

QList<InformeRegistrado> Informes::Lista() const {
    QList<InformeRegistrado> lista;
    Registros filas = m_base->Lee(u"SELECT * FROM SPOOL ORDER BY Archivo DESC, CodRep"_s);
    while (filas.Siguiente()) {
        // The name comes out of a shared table: whatever path it brings along is dropped.
        const QString archivo = QFileInfo(filas.Texto(u"Archivo")).fileName();
        const QString codigo = filas.Texto(u"CodRep");
        lista.append({.codigo = codigo,
                      .titulo = Titulo(codigo),
                      .secuencia = filas.Texto(u"Secuencia"),
                      .archivo = archivo,
                      .fecha = Mostrada(filas.Texto(u"Fecha")),
                      .usuario = filas.Texto(u"Usuario"),
                      .ruc = filas.Texto(u"Doc_id_d"),
                      .hojas = PaginasDe(Ruta(archivo))});
    }
    return lista;
}

void Informes::Elimina(const InformeRegistrado& informe) {
    Transaccion transaccion = m_base->Comienza();
    m_base->Ejecuta(u"DELETE * FROM SPOOL WHERE CodRep = ? AND Secuencia = ?"_s, {informe.codigo, informe.secuencia});
    const QString ruta = Ruta(informe.archivo);
    if (QFileInfo(ruta).isFile() && !QFile::remove(ruta))
        throw Error(NumeroError::AccesoAlDisco, u"No se puede eliminar el archivo '%1'."_s.arg(ruta));
    transaccion.Confirma();
}

QString Informes::Ruta(const QString& archivo) const {
    return m_carpeta + QDir::separator() + archivo;
}

} // namespace xa518
