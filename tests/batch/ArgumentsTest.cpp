#include "batch/Arguments.h"

#include "batch/ExitCode.h"

#include <QDir>
#include <QList>

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

Lectura Lee(const QString& linea) {
    return LeeArgumentos(QStringList{u"xa518-lote"_s} + linea.split(u' ', Qt::SkipEmptyParts));
}

TEST(Arguments, RefusesWhatDoesNotFitTogether) {
    const QString clave = u" --ruc 20100000009 --periodo 202609 "_s;
    const QList<QString> malas = {
        u""_s,
        u"importar --ruc 20100000009"_s,
        u"listar --ruc 20100000009"_s,
        u"validar"_s + clave + u"--importe 5"_s,
        u"importar"_s + clave + u"--efectivo"_s,
        u"declarar"_s + clave + u"--efectivo --cheque 5 --banco 02"_s,
        u"declarar"_s + clave + u"--cheque 5"_s,
        u"declarar"_s + clave + u"--importe -5"_s,
        u"declarar"_s + clave + u"--interes 1234567890123"_s,
        u"declarar"_s + clave + u"--hoy 31/02/2026"_s,
    };
    for (const QString& mala : malas) {
        const Lectura lectura = Lee(mala);
        EXPECT_FALSE(lectura.argumentos) << mala.toStdString();
        EXPECT_EQ(lectura.codigo, kSalidaRechazado) << mala.toStdString();
        EXPECT_TRUE(lectura.texto.contains(u"Uso:"_s)) << mala.toStdString();
    }
}

TEST(Arguments, FoldersAreMadeAbsoluteBeforeTheInstallationBecomesCurrent) {
    const Lectura lectura = Lee(u"importar --ruc 20100000009 --periodo 202609 --percepciones mes/uno"_s);
    ASSERT_TRUE(lectura.argumentos);
    EXPECT_EQ(lectura.argumentos->percepciones, QDir::current().absoluteFilePath(u"mes/uno"_s));
}

} // namespace
