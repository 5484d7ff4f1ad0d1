#pragma once

#include "data/Base.h"
#include "launcher/Schema.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace xa518 {

/// A real file, gone with the test; `ConTablas` gives it the shipped tables.
class BaseNueva {
  public:
    BaseNueva() : m_base(Base::Crea(m_carpeta.filePath(QStringLiteral("prueba.db")))) {}

    BaseNueva& ConTablas() {
        EXPECT_EQ(Esquema().Aplica(*m_base).resultado, ResultadoEsquema::Creado);
        return *this;
    }
    Base& operator*() { return *m_base; }
    Base* operator->() { return m_base.get(); }

    /// The first column of the first row, as text.
    QString Valor(const QString& sql, const QVariantList& valores = {}) {
        Registros filas = m_base->Lee(sql, valores);
        return filas.Siguiente() ? filas.Texto(0) : QString();
    }
    qint64 Cuenta(const QString& tabla) { return Valor(QStringLiteral("SELECT count(*) FROM ") + tabla).toLongLong(); }

  private:
    QTemporaryDir m_carpeta;
    std::unique_ptr<Base> m_base;
};

} // namespace xa518
