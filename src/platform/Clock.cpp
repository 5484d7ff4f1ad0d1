#include "platform/Clock.h"

namespace xa518 {

QDateTime RelojSistema::Ahora() const {
    return QDateTime::currentDateTime();
}

RelojFijo::RelojFijo(QDateTime momento) : m_momento(std::move(momento)) {}

} // namespace xa518
