#pragma once

#include <QList>
#include <QStringList>

// "Flipflop Setting": the type of the flip-flop, which is its keyword.
class CFlipFlopDialogLogic
{
  public:
    struct CType
    {
        int TextId;
        int Value;
        const char* Keyword;
    };
    // In list order; the values are the type numbers, so the order is free.
    static const QList<CType>& Types();

    explicit CFlipFlopDialogLogic(const QStringList& tokens);

    // 0 while no type is chosen.
    int GetType() const { return m_type; }
    void SetType(int value);
    bool IsOkEnabled() const { return m_type != 0; }
    // The keyword alone; a comment of the line is dropped on purpose.
    QStringList Tokens() const;

  private:
    int m_type = 0;
};
