#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// "Counter Setting": hold or cyclic, and up to fifteen count values from 0 to 32767.
class CCounterDialogLogic
{
  public:
    enum
    {
        ValueCount = 15,
        MaxLength = 5,
        MaxValue = 32767
    };

    struct CType
    {
        int TextId;
        int Value;
        const char* Letter;
    };
    static const QList<CType>& Types();

    explicit CCounterDialogLogic(const QStringList& tokens);

    int GetType() const { return m_type; }
    void SetType(int value);
    QString GetValue(int i) const { return m_values[i]; }
    void SetValue(int i, const QString& text) { m_values[i] = text; }

    // The value field to select, -1 when there is none.
    int WrongField() const;
    bool IsOkEnabled() const;
    // "CNT", the type letter, the values as plain numbers, distinct and descending.
    QStringList Tokens() const;

  private:
    QStringList Values() const;

    int m_type = 0;
    QString m_values[ValueCount];
};
