#pragma once

namespace xa518 {

class Base;

/// While it lives, what is read takes little memory however many rows there are: those that don't fit are put in order
/// on disk. Begin it before the first row is read.
class LecturaLarga {
  public:
    explicit LecturaLarga(Base& base);
    LecturaLarga(const LecturaLarga&) = delete;
    LecturaLarga& operator=(const LecturaLarga&) = delete;
    ~LecturaLarga();

  private:
    Base* m_base;
};

} // namespace xa518
