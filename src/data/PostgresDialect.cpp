#include "data/PostgresDialect.h"

#include "data/SqlTokens.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

bool Es(const QString& ficha, QLatin1StringView palabra) {
    return ficha.compare(palabra, Qt::CaseInsensitive) == 0;
}

bool EsAlguna(const QString& ficha, std::initializer_list<QLatin1StringView> palabras) {
    return std::any_of(palabras.begin(), palabras.end(), [&](QLatin1StringView una) { return Es(ficha, una); });
}

bool EsColumna(const QString& ficha) {
    return ficha.front() == u'"' || (EsDeNombre(ficha.front()) && !ficha.front().isDigit());
}

void TraduceNombres(QStringList& fichas) {
    for (QString& ficha : fichas) {
        if (ficha.startsWith(u'['))
            ficha = u'"' + ficha.sliced(1).chopped(1).toLower() + u'"';
    }
}

/// The tokens of one item of an order or of a grouping.
class Elemento {
  public:
    Elemento(QStringList& fichas, qsizetype desde, qsizetype hasta) : m_fichas(&fichas) {
        for (qsizetype i = desde; i < hasta; ++i) {
            if (!EsBlanco(fichas[i]))
                m_lugares.append(i);
        }
    }

    [[nodiscard]] bool Vacio() const { return m_lugares.isEmpty(); }

    /// A bare column: an expression has no order but that of its codes, on every engine.
    void EnvuelveColumna() {
        const qsizetype cuantas = m_lugares.size() - (TieneSentido() ? 1 : 0);
        if (cuantas == 1 && EsColumna(Ficha(0)))
            (*m_fichas)[m_lugares.constFirst()] = u"en_orden(%1)"_s.arg(Ficha(0));
    }

    void PonLugarDeNulos() {
        const bool baja = Es(Ficha(m_lugares.size() - 1), "desc"_L1);
        (*m_fichas)[m_lugares.constLast()] += baja ? u" NULLS LAST"_s : u" NULLS FIRST"_s;
    }

  private:
    [[nodiscard]] const QString& Ficha(qsizetype i) const { return m_fichas->at(m_lugares[i]); }
    [[nodiscard]] bool TieneSentido() const { return EsAlguna(Ficha(m_lugares.size() - 1), {"asc"_L1, "desc"_L1}); }

    QStringList* m_fichas;
    QList<qsizetype> m_lugares;
};

/// Goes over the items that stand behind "BY" up to the end of their list.
template <typename Trato>
void PorElementos(QStringList& fichas, qsizetype desde, const Trato& trata) {
    int nivel = 0;
    qsizetype comienzo = desde;
    qsizetype i = desde;
    const auto cierra = [&] {
        if (Elemento elemento(fichas, comienzo, i); !elemento.Vacio())
            trata(elemento);
        comienzo = i + 1;
    };
    for (; i < fichas.size(); ++i) {
        const QString& ficha = fichas[i];
        nivel += ficha == u"(" ? 1 : ficha == u")" ? -1 : 0;
        const bool acaba = EsAlguna(ficha, {"limit"_L1, "offset"_L1, "order"_L1, "having"_L1, "union"_L1, ";"_L1});
        if (nivel < 0 || (nivel == 0 && acaba))
            break;
        if (nivel == 0 && ficha == u",")
            cierra();
    }
    cierra();
}

void TraduceOrdenes(QStringList& fichas) {
    for (qsizetype i = 0; i < fichas.size(); ++i) {
        const qsizetype siguiente = SiguienteFicha(fichas, i, 1);
        if (siguiente >= fichas.size() || !Es(fichas[siguiente], "by"_L1))
            continue;
        if (Es(fichas[i], "order"_L1)) {
            PorElementos(fichas, siguiente + 1, [](Elemento& elemento) {
                elemento.EnvuelveColumna();
                elemento.PonLugarDeNulos();
            });
        } else if (Es(fichas[i], "group"_L1)) {
            PorElementos(fichas, siguiente + 1, [](Elemento& elemento) { elemento.EnvuelveColumna(); });
        }
    }
}

bool CreaTabla(const QStringList& fichas) {
    const qsizetype primera = SiguienteFicha(fichas, -1, 1);
    const qsizetype segunda = SiguienteFicha(fichas, primera, 1);
    return segunda < fichas.size() && Es(fichas[primera], "create"_L1) && Es(fichas[segunda], "table"_L1);
}

} // namespace

QString TraduceAPostgres(const QString& sql) {
    QStringList fichas = Fichas(sql);
    if (CreaTabla(fichas))
        return TraduceTabla(sql);
    QuitaAsteriscoDeDelete(fichas);
    TraduceNombres(fichas);
    TraduceOrdenes(fichas);
    return fichas.join(QString());
}

const QString& ColumnaDeAlta() {
    static const QString columna = u"alta"_s;
    return columna;
}

} // namespace xa518
