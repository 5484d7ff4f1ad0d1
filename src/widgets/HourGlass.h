#pragma once

namespace xa518 {

/// The hourglass pointer while the object lives.
class RelojDeArena {
  public:
    RelojDeArena();
    RelojDeArena(const RelojDeArena&) = delete;
    RelojDeArena& operator=(const RelojDeArena&) = delete;
    ~RelojDeArena();

    /// Ends it early: before a form opens over the one that made it.
    void Suelta();

  private:
    bool m_puesto = true;
};

} // namespace xa518
