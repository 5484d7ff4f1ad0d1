#include "data/Catalog.h"

#include "data/Base.h"
#include "data/CatalogLayout.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

QString Catalogo::FuncionParam(const QString& numero, const QString& argumento, int largo, int inicio) const {
    Registros fila = m_base->Lee(u" Select Argumento,mid(Funcion,?,?) as Func From Param "
                                 " Where Numero = ? and Argumento =?"_s,
                                 {inicio, largo, numero, argumento});
    return fila.Siguiente() ? fila.Texto(u"func") : QString();
}

QString Catalogo::FuncionParam(const QString& numero, const QString& argumento, const Tramo& tramo) const {
    return FuncionParam(numero, argumento, tramo.ancho, tramo.inicio);
}

QString Catalogo::Funcion(const QString& numero, const QString& argumento) const {
    Registros fila = m_base->Lee(u"SELECT Funcion FROM PARAM WHERE Numero=? AND Argumento=?"_s, {numero, argumento});
    return fila.Siguiente() ? fila.Texto(0) : QString();
}

QString Catalogo::DescError(const QString& codigo) const {
    Registros fila = m_base->Lee(u"SELECT * FROM ERROR WHERE CodError=?"_s, {Format(codigo, u"0000")});
    return fila.Siguiente() ? fila.Texto(u"DescError") : QString();
}

QString Catalogo::TipoUsuario(const QString& usuario) const {
    Registros fila = m_base->Lee(u"SELECT * FROM CLAVES WHERE Usuario=?"_s, {usuario});
    return fila.Siguiente() ? fila.Texto(u"Tipo") : u"1"_s;
}

QString SqlBancos() {
    return u"SELECT %1 as codigo, %2 as descrip "
           "FROM PARAM WHERE NUMERO='004' AND TRIM(ARGUMENTO)<> '00' order by 1"_s.arg(
               TramosBanco::kCodigo.Sql(u"ARGUMENTO"), TramosBanco::kNombre.Sql(u"FUNCION"));
}

QList<BancoOfrecido> BancosOfrecidos(Base& base) {
    Registros filas = base.Lee(SqlBancos());
    QList<BancoOfrecido> bancos;
    while (filas.Siguiente())
        bancos.append({filas.Texto(0), filas.Texto(1)});
    return bancos;
}

} // namespace xa518
