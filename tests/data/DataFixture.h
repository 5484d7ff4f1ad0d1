#pragma once

#include "Printers.h"
#include "data/Base.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

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

constexpr int Codigo(NumeroError numero) {
    return static_cast<int>(numero);
}

/// An empty base in a folder of its own, with the few tables that a case asks for.
class BaseDePrueba : public testing::Test {
  protected:
    BaseDePrueba();

    [[nodiscard]] QString Ruta(const QString& nombre) const { return m_carpeta.filePath(nombre); }
    void Corre(const QStringList& sentencias);
    void CreaCatalogo();
    void Param(const QString& numero, const QString& argumento, const QString& funcion);
    /// The first column of all rows, joined by "|"; null shows as "NULL".
    [[nodiscard]] QString Lista(const QString& sql, const QVariantList& valores = {});

    QTemporaryDir m_carpeta;
    std::unique_ptr<Base> m_base;
};

} // namespace xa518
