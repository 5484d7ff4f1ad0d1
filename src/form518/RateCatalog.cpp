#include "form518/RateCatalog.h"

#include "data/Base.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The fixed part of the catalogue's key, between the class and the month.
const QString kTramo = u"010909"_s;
const QString kSinFin = u"99991231"_s;
constexpr int kLugares = 20;
constexpr int kInicioMes = 8;
constexpr int kLargoMes = 6;

/// The month of the row in force: the last start not after `mes`; empty when none is.
QString VigenciaPara(const QStringList& vigencias, QStringView mes) {
    for (qsizetype i = 0; i + 1 < vigencias.size(); ++i) {
        if (mes >= QStringView(vigencias[i]).left(kLargoMes) && mes < QStringView(vigencias[i + 1]).left(kLargoMes))
            return vigencias[i];
    }
    return {};
}

} // namespace

CatalogoTasas::CatalogoTasas(Base& base, Periodo periodoDeclarado)
    : m_base(&base), m_periodoDeclarado(periodoDeclarado) {}

FilaTasa CatalogoTasas::Busca(const QString& clase, Periodo mes) {
    const QString clave = clase + mes.Texto();
    const auto leida = m_leidas.constFind(clave);
    if (leida != m_leidas.cend())
        return *leida;
    return *m_leidas.insert(clave, LeeFila(clase, VigenciaPara(Vigencias(clase), mes.Texto())));
}

QStringList CatalogoTasas::Vigencias(const QString& clase) const {
    Registros filas = m_base->Lee(u"SELECT * FROM PARAM WHERE numero='953' AND LEFT(ARGUMENTO,7)=?"
                                  " order by argumento"_s,
                                  {QString(clase + kTramo)});
    QStringList vigencias;
    while (filas.Siguiente())
        vigencias.append(Mid(Recorta(filas.Texto(u"Argumento")), kInicioMes, kLargoMes).toString());
    vigencias.append(kSinFin);
    if (vigencias.size() > kLugares) // the sentinel takes one of the places
        throw Desbordamiento();
    return vigencias;
}

FilaTasa CatalogoTasas::LeeFila(const QString& clase, const QString& desde) const {
    Registros filas = m_base->Lee(u"SELECT * FROM PARAM WHERE numero='953' AND LEFT(argumento,13)=?"
                                  " order by argumento"_s,
                                  {QString(clase + kTramo + desde)});
    if (!filas.Siguiente())
        return {u"0"_s, u"0"_s};
    const QString funcion = filas.Texto(u"Funcion");
    const QStringView factor = ConFactorInicial(m_periodoDeclarado) ? Mid(funcion, 2, 6) : Mid(funcion, 21, 9);
    return {Recorta(factor).toString(), Recorta(Mid(funcion, 31, 6)).toString()};
}

} // namespace xa518
