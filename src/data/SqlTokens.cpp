#include "data/SqlTokens.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The position behind a text in quotes that starts at `desde`; doubled quotes stay inside.
qsizetype FinDeComillas(const QString& sql, qsizetype desde) {
    const QChar comilla = sql[desde];
    qsizetype i = desde + 1;
    while (i < sql.size()) {
        if (sql[i] == comilla && (i + 1 >= sql.size() || sql[i + 1] != comilla))
            return i + 1;
        i += sql[i] == comilla ? 2 : 1;
    }
    return sql.size();
}

qsizetype FinDePalabra(const QString& sql, qsizetype desde) {
    qsizetype i = desde;
    while (i < sql.size() && EsDeNombre(sql[i]))
        ++i;
    return i;
}

} // namespace

bool EsDeNombre(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'.' || c == u'$';
}

QStringList Fichas(const QString& sql) {
    QStringList fichas;
    for (qsizetype i = 0; i < sql.size();) {
        qsizetype fin = i + 1;
        if (sql[i] == u'\'' || sql[i] == u'"')
            fin = FinDeComillas(sql, i);
        else if (sql[i] == u'[' && sql.indexOf(u']', i) > 0)
            fin = sql.indexOf(u']', i) + 1;
        else if (EsDeNombre(sql[i]))
            fin = FinDePalabra(sql, i);
        else if (sql[i].isSpace())
            while (fin < sql.size() && sql[fin].isSpace())
                ++fin;
        fichas.append(sql.sliced(i, fin - i));
        i = fin;
    }
    return fichas;
}

bool EsBlanco(const QString& ficha) {
    return ficha.isEmpty() || ficha.front().isSpace();
}

qsizetype SiguienteFicha(const QStringList& fichas, qsizetype desde, qsizetype paso) {
    qsizetype i = desde + paso;
    while (i >= 0 && i < fichas.size() && EsBlanco(fichas[i]))
        i += paso;
    return i;
}

void QuitaAsteriscoDeDelete(QStringList& fichas) {
    const qsizetype primera = SiguienteFicha(fichas, -1, 1);
    if (primera >= fichas.size() || fichas[primera].compare("DELETE"_L1, Qt::CaseInsensitive) != 0)
        return;
    const qsizetype segunda = SiguienteFicha(fichas, primera, 1);
    if (segunda < fichas.size() && fichas[segunda] == u"*")
        fichas[segunda] = u" "_s;
}

qsizetype LugaresDeValores(const QString& sql) {
    return Fichas(sql).count(u"?"_s);
}

} // namespace xa518
