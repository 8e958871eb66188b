#pragma once

#include <QString>

#include <memory>

class CPanel;
class CPanelCell;
struct CPortEntry;

// One panel a board offers in its panel bar: a prototype panel made from the type keyword,
// which dragging copies, and how many of it one layout may hold.
class CPaletteEntry
{
  public:
    // The prototype is made by the panel factory from type and takes name as its type
    // display name. value is kept as the file gives it; no panel uses it yet.
    CPaletteEntry(const QString& type, const QString& name, const QString& value);
    CPaletteEntry(CPaletteEntry&&) noexcept;
    CPaletteEntry& operator=(CPaletteEntry&&) noexcept;
    ~CPaletteEntry();

    const QString& GetType() const { return m_type; }
    const QString& GetValue() const { return m_value; }
    // Null for a type keyword the factory does not know; the entry stays in its page so that
    // positions match the file, but the panel bar has nothing to offer for it.
    const CPanel* GetPrototype() const { return m_prototype.get(); }
    CPanel* Prototype() { return m_prototype.get(); }
    // -1: no limit.
    int GetUseLimit() const { return m_useLimit; }
    void SetUseLimit(int limit) { m_useLimit = limit; }

    // A new cell copied from the prototype, as placing it from the panel bar makes it; null
    // without a prototype.
    std::unique_ptr<CPanelCell> MakeCell() const;

    // The settings a palette gives its prototype; without a prototype they change nothing.
    void AddPort(const CPortEntry& port);
    void SetWeight(int weight);

  private:
    QString m_type;
    QString m_value;
    std::unique_ptr<CPanel> m_prototype;
    int m_useLimit = -1;
};
