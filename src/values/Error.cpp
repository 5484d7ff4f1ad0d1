#include "values/Error.h"

#include <QtDebug>

namespace xa518 {

using namespace Qt::StringLiterals;

Error::Error(int numero, QString texto, QString detalle)
    : m_numero(numero), m_texto(std::move(texto)), m_detalle(std::move(detalle)), m_bytes(m_texto.toUtf8()) {}

Error::Error(NumeroError numero, QString texto, QString detalle)
    : Error(static_cast<int>(numero), std::move(texto), std::move(detalle)) {}

Desbordamiento::Desbordamiento() : Error(NumeroError::Desbordamiento, u"Desbordamiento"_s) {}

void AnotaDetalle(const Error& error) {
    if (!error.Detalle().isEmpty())
        qInfo().noquote() << error.Detalle();
}

} // namespace xa518
