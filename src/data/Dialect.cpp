#include "data/Dialect.h"

#include "data/SqlTokens.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Only before a parenthesis is a word a function: "left" also names a kind of join.
void TraduceFunciones(QStringList& fichas) {
    static const QHash<QString, QString> funciones = {
        {u"mid$"_s, u"substr"_s}, {u"mid"_s, u"substr"_s}, {u"left"_s, u"izquierda"_s}, {u"len"_s, u"length"_s}};
    for (qsizetype i = 0; i + 1 < fichas.size(); ++i) {
        if (fichas[i + 1] == u"(")
            fichas[i] = funciones.value(fichas[i].toLower(), fichas[i]);
    }
}

/// The other end of the operand whose first token, seen from the operator, is `desde`: a name, a text, or a call with
/// its arguments.
qsizetype FinDeOperando(const QStringList& fichas, qsizetype desde, qsizetype paso) {
    const QString abre = paso > 0 ? u"("_s : u")"_s;
    const QString cierra = paso > 0 ? u")"_s : u"("_s;
    qsizetype i = desde;
    if (paso > 0 && fichas[i] != abre && i + 1 < fichas.size() && fichas[i + 1] == abre)
        ++i;
    if (fichas[i] != abre)
        return i;
    for (int nivel = 0; i >= 0 && i < fichas.size(); i += paso) {
        nivel += fichas[i] == abre ? 1 : fichas[i] == cierra ? -1 : 0;
        if (nivel == 0)
            break;
    }
    i = std::clamp<qsizetype>(i, 0, fichas.size() - 1); // a text with an unpaired parenthesis fails in the engine
    const bool esLlamada = paso < 0 && i > 0 && EsDeNombre(fichas[i - 1].front());
    return esLlamada ? i - 1 : i;
}

/// `a & b` takes null as the empty text, which the engine's own operator doesn't. What is put around the operands is
/// counted first and written last, so that each operand is found in the text as it was.
void TraduceUnion(QStringList& fichas) {
    QList<int> abren(fichas.size());
    QList<int> cierran(fichas.size());
    const auto envuelve = [&](qsizetype primera, qsizetype ultima) {
        ++abren[primera];
        ++cierran[ultima];
    };
    for (qsizetype i = fichas.indexOf(u"&"); i >= 0; i = fichas.indexOf(u"&", i + 1)) {
        const qsizetype izquierda = SiguienteFicha(fichas, i, -1);
        const qsizetype derecha = SiguienteFicha(fichas, i, 1);
        if (izquierda < 0 || derecha >= fichas.size())
            break;
        envuelve(FinDeOperando(fichas, izquierda, -1), izquierda);
        envuelve(derecha, FinDeOperando(fichas, derecha, 1));
    }
    for (qsizetype i = 0; i < fichas.size(); ++i) {
        if (fichas[i] == u"&")
            fichas[i] = u"||"_s;
        fichas[i] = u"ifnull("_s.repeated(abren[i]) + fichas[i] + u",'')"_s.repeated(cierran[i]);
    }
}

/// Within a sum `x * 1` and `val(x)` only say that a text is meant as a number. The engine would make that number a
/// binary one; its exact `sum` reads the text instead.
void TraduceSumas(QStringList& fichas) {
    for (qsizetype i = 0; i + 1 < fichas.size(); ++i) {
        if (fichas[i].compare("sum"_L1, Qt::CaseInsensitive) != 0 || fichas[i + 1] != u"(")
            continue;
        const qsizetype fin = FinDeOperando(fichas, i, 1);
        for (qsizetype j = i + 2; j < fin; ++j) {
            const qsizetype siguiente = SiguienteFicha(fichas, j, 1);
            if (fichas[j].compare("val"_L1, Qt::CaseInsensitive) == 0 && fichas[j + 1] == u"(")
                fichas[j].clear();
            else if (fichas[j] == u"*" && fichas.value(siguiente) == u"1")
                fichas[j] = fichas[siguiente] = u" "_s;
        }
    }
}

void TraduceNombres(QStringList& fichas) {
    for (QString& ficha : fichas) {
        if (ficha.startsWith(u'['))
            ficha = u'"' + ficha.sliced(1).chopped(1) + u'"';
    }
}

} // namespace

QString TraduceASqlite(const QString& sql) {
    QStringList fichas = Fichas(sql);
    QuitaAsteriscoDeDelete(fichas);
    TraduceNombres(fichas);
    TraduceSumas(fichas);
    TraduceFunciones(fichas);
    TraduceUnion(fichas);
    return fichas.join(QString());
}
} // namespace xa518
