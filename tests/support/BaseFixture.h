#pragma once

#include "support/TemporaryBase.h"

namespace xa518 {

/// The engine's number when the work raises an `ErrorBase`; 0 when it passes.
template <typename Trabajo>
int NumeroDe(const Trabajo& trabajo) {
    try {
        trabajo();
    } catch (const ErrorBase& error) {
        return error.Numero();
    }
    return 0;
}

/// A base with the shipped tables, and those that a case adds.
class BaseDePrueba : public testing::Test {
  protected:
    /// The rows of a query joined by "|".
    [[nodiscard]] QString Lista(const QString& sql, const QVariantList& valores = {}) const {
        return m_base.Filas(sql, valores).join(u'|');
    }
    prueba::BaseTemporal m_base;
};

} // namespace xa518
