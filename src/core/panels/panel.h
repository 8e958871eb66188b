#pragma once

#include "panelimage.h"
#include "panelkind.h"
#include "portlist.h"

#include <QString>
#include <QStringList>

class CPanel;

// The property dialogs a panel family opens. The editor supplies the dialogs; the model
// only says which one a panel wants.
enum class EPanelDialog
{
    None,
    Switch,
    FlipFlop,
    Delay,
    Buzzer,
    Counter,
    SevenSeg,
    StepMotor,
    StepMotorOut,
    Timer,
    SerialIn,
    SerialBit,
    SerialOut,
    Pulse,
    Pwm,
    WebIn,
    Lcd,
    Jump,
};

// Runs a panel's property dialog on a copy of its tokens. On OK the dialog hands its
// tokens back through CPanel::AcceptProperties and the call answers true.
class IPropertyEditor
{
  public:
    virtual ~IPropertyEditor() = default;
    virtual bool Edit(CPanel& panel, EPanelDialog dialog) = 0;
};

// What a family's constructor sets before it reads its line; the rest keeps the defaults.
struct CPanelDefaults
{
    int Area = 0;
    int BitmapId = 60000;
    const char* Sides = "";
    int MinTokens = 0;
    bool ShowsPorts = true;
    bool ShowsComment = true;
    int FixedTokens = -1;
    int PortToken = -1;
    const char* Keyword = nullptr; // token 0 of a panel made without a line
};

// One function block of a layout. Its whole persistent state is its definition line:
// keyword, arguments and an optional ";" comment. Families set defaults in their
// constructors and override some of the virtual operations below, kept in slot order.
class CPanel
{
  public:
    enum
    {
        NoPanel = 60000
    };
    enum EArea
    {
        AreaNone = 0,
        AreaInput = 1,
        AreaOutput = 2,
        AreaProcess = 3
    };

    virtual QString GetCaption() const;
    virtual QString GetPortName(int i) const;
    virtual QString GetComment(int i) const;
    // The Rotate command: a panel that can turn changes its orientation and answers true;
    // the base cannot turn and answers false.
    virtual bool Rotate();
    virtual int GetMode() const;
    virtual QString GetPortText() const;
    virtual QString GetSides() const;
    virtual bool IsIncomplete() const;
    virtual bool MakeImage(CPanelImage& image);
    virtual void SetVariant(int variant);
    virtual bool SetLine(const QString& line);
    virtual QString GetLine() const;
    virtual bool EditProperties(IPropertyEditor& editor);
    virtual ~CPanel();
    virtual void UpdateCaption();

    // What a property dialog's OK gives back: the new tokens and the port chosen.
    virtual void AcceptProperties(const QStringList& tokens, int portIndex);

    QString GetName() const { return m_name; }
    void SetName(const QString& name);
    // The panel's weight against the layout's capacity.
    int GetWeight() const { return m_weight; }
    void SetWeight(int weight) { m_weight = weight; }
    int GetItemCount() const { return m_itemCount; }
    // Gates, wires and the web output have no properties to set, so the check never
    // names them as incomplete.
    bool NeedsProperties() const { return m_needsProperties; }
    // Whether the Rotate command turns this panel.
    bool CanRotate() const { return m_canRotate; }
    QString GetTrailingComment() const;
    void RecountItems();
    void ResolvePort();
    void CopyFrom(const CPanel& other);

    // What the panel is, from its keyword.
    EPanelKind GetKind() const;
    int GetArea() const { return m_area; }
    int GetBitmapId() const { return m_bitmapId; }
    int GetPortIndex() const { return m_portIndex; }
    int GetVariant() const { return m_variant; }
    int GetReference() const { return m_reference; }
    const QString& GetText() const { return m_text; }
    // The comment of the line as last parsed, without its ";".
    const QString& GetLineComment() const { return m_comment; }
    const QStringList& GetTokens() const { return m_tokens; }
    const CPortList& GetPortList() const { return m_portList; }
    CPortList& PortList()
    {
        InvalidateCaption(); // the caption shows ports in the list's display form
        return m_portList;
    }
    // The caption is built when it is next asked for: a panel being loaded changes its line,
    // ports and name in turn, and only the last state is ever shown.
    void InvalidateCaption() { m_captionStale = true; }

    // A row count read from a number in the line is bounded, so that a malformed line cannot
    // make a panel of millions of rows: anything taller than the grid stays too tall to place.
    static constexpr int kTooManyRows = 41;
    static int BoundedRows(int rows) { return qMin(rows, kTooManyRows); }

    // Rows the panel covers in the grid.
    int GetHeight() const { return m_itemCount > 1 ? m_itemCount : 1; }

    // The written and read forms of a definition line, shared by every family.
    static QString JoinLine(const QStringList& tokens);
    static QStringList SplitLine(const QString& line);

  protected:
    explicit CPanel(const CPanelDefaults& defaults);
    // Called at the end of every family constructor: virtual dispatch reaches the family
    // only once the family's own constructor runs.
    void Init(const QString& line);

    QString Token(int i) const { return i >= 0 && i < m_tokens.size() ? m_tokens[i] : QString(); }
    int TokenCount() const { return int(m_tokens.size()); }
    // Sets token index in place; the token array grows with empty tokens as needed.
    void SetToken(int index, const QString& value);
    // The display name a line carries in its last token: that token without its ";", or ""
    // when the line ends in no comment.
    QString CommentName() const;
    // Tokens not counting a final comment.
    int ArgumentCount() const;
    // The keyword and the arguments before the first comment: what a line is written with,
    // since nothing after a comment is written.
    int TokensBeforeComment() const;
    bool EndsWithComment() const;
    // Name + " : " + the given properties, each followed by two blanks, empty ones left out.
    void SetCaptionParts(std::initializer_list<QString> parts);
    QString PortProperty(const QString& port) const;

    int m_area;
    int m_bitmapId;
    CPortList m_portList;
    int m_portIndex = -1;
    int m_variant = 0;
    int m_reference = -1;
    int m_minTokens;
    QString m_text;
    int m_weight = 10;
    QString m_caption;
    mutable bool m_captionStale = true;
    QString m_name;
    QString m_comment;
    QString m_sides;
    bool m_showsPorts;
    bool m_showsComment;
    bool m_canRotate = false;
    QStringList m_tokens;
    int m_itemCount = 1;
    int m_fixedTokens;
    int m_portToken;
    bool m_needsProperties = true;
};
