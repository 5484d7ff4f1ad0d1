#include "form518/RateCatalog.h"

#include "data/Base.h"
#include "form518/FormCatalogs.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kSinFin = u"99991231"_s;
constexpr int kLugares = 20;

/// Of a key of the class, up to the month.
QString Comienzo(const QString& clase) {
    return clase + TramosTasa::kFijo.toString();
}

/// The rows whose key begins with so many given characters.
QString SqlTasas(int comienzo) {
    return u"SELECT * FROM PARAM WHERE numero='953' AND LEFT(ARGUMENTO,%1)=? order by argumento"_s.arg(comienzo);
}

/// The month of the row in force: the last start not after `mes`; empty when none is.
QString VigenciaPara(const QStringList& vigencias, QStringView mes) {
    for (qsizetype i = 0; i + 1 < vigencias.size(); ++i) {
        if (mes >= QStringView(vigencias[i]).left(TramosTasa::kDesde.ancho) &&
            mes < QStringView(vigencias[i + 1]).left(TramosTasa::kDesde.ancho))
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

bool CatalogoTasas::Conoce(const QString& clase, Periodo mes) const {
    return m_leidas.contains(clase + mes.Texto());
}

QStringList CatalogoTasas::Vigencias(const QString& clase) const {
    Registros filas = m_base->Lee(SqlTasas(TramosTasa::kDesde.inicio - 1), {Comienzo(clase)});
    QStringList vigencias;
    while (filas.Siguiente())
        vigencias.append(TramosTasa::kDesde.Corta(Recorta(filas.Texto(u"Argumento"))).toString());
    vigencias.append(kSinFin);
    if (vigencias.size() > kLugares) // the sentinel takes one of the places
        throw Desbordamiento();
    return vigencias;
}

FilaTasa CatalogoTasas::LeeFila(const QString& clase, const QString& desde) const {
    Registros filas =
        m_base->Lee(SqlTasas(TramosTasa::kDesde.inicio - 1 + TramosTasa::kDesde.ancho), {Comienzo(clase) + desde});
    if (!filas.Siguiente())
        return {u"0"_s, u"0"_s};
    const QString funcion = filas.Texto(u"Funcion");
    const Tramo& factor = ConFactorInicial(m_periodoDeclarado) ? TramosTasa::kFactorInicial : TramosTasa::kFactor;
    return {.factor = Recorta(factor.Corta(funcion)).toString(),
            .tasa = Recorta(TramosTasa::kTasa.Corta(funcion)).toString()};
}

} // namespace xa518
