#include "launcher/SpoolList.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "reports/SharedReports.h"
#include "reports/SpoolReport.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString RutaDeInforme(const QString& carpeta, const QString& archivo) {
    return carpeta + QDir::separator() + archivo;
}

/// The name comes out of a shared table: whatever path it brings along is dropped.
QString SinCarpeta(const QString& archivo) {
    const bool conCarpeta = archivo.contains(u'/') || archivo.contains(u'\\');
    return conCarpeta ? QFileInfo(archivo).fileName() : archivo;
}

} // namespace

QString InformeRegistrado::FechaMostrada() const {
    const QDateTime momento = QDateTime::fromString(fecha, Qt::ISODate);
    return momento.isValid() ? momento.toString(u"dd/MM/yyyy HH:mm"_s) : fecha;
}

std::optional<int> InformeRegistrado::Hojas(const QString& carpeta) const {
    return hojasEnLaBase ? hojasEnLaBase : PaginasDe(RutaDeInforme(carpeta, archivo));
}

QString Informes::Titulo(const QString& codigo) const {
    for (const Formulario& formulario : m_formularios) {
        if (const auto titulo = formulario.informes.constFind(codigo); titulo != formulario.informes.cend())
            return *titulo;
    }
    return codigo;
}

QList<InformeRegistrado> Informes::Lista() const {
    QList<InformeRegistrado> lista;
    const QHash<QString, int> hojas = TextosDeInformes(*m_base).Hojas();
    Registros filas = m_base->Lee(u"SELECT * FROM SPOOL ORDER BY Archivo DESC, CodRep"_s);
    const int nombre = filas.Columna(u"Archivo");
    const int codigo = filas.Columna(u"CodRep");
    const int secuencia = filas.Columna(u"Secuencia");
    const int fecha = filas.Columna(u"Fecha");
    const int usuario = filas.Columna(u"Usuario");
    const int ruc = filas.Columna(u"Doc_id_d");
    while (filas.Siguiente()) {
        const auto suyas = hojas.constFind(filas.Texto(nombre).toUpper());
        lista.append({.codigo = filas.Texto(codigo),
                      .titulo = Titulo(filas.Texto(codigo)),
                      .secuencia = filas.Texto(secuencia),
                      .archivo = SinCarpeta(filas.Texto(nombre)),
                      .fecha = filas.Texto(fecha),
                      .usuario = filas.Texto(usuario),
                      .ruc = filas.Texto(ruc),
                      .hojasEnLaBase = suyas == hojas.cend() ? std::nullopt : std::optional(*suyas)});
    }
    return lista;
}

void Informes::Elimina(const InformeRegistrado& informe) {
    Transaccion transaccion = m_base->Comienza();
    m_base->Ejecuta(u"DELETE * FROM SPOOL WHERE CodRep = ? AND Secuencia = ?"_s, {informe.codigo, informe.secuencia});
    TextosDeInformes(*m_base).Elimina(informe.archivo);
    const QString ruta = RutaDeInforme(m_carpeta, informe.archivo);
    if (QFileInfo(ruta).isFile() && !QFile::remove(ruta))
        throw Error(NumeroError::AccesoAlDisco, u"No se puede eliminar el archivo '%1'."_s.arg(ruta));
    transaccion.Confirma();
}

} // namespace xa518
