#include "panelcell.h"

#include "panelfactory.h"

CPanelCell::CPanelCell(const QString& line)
{
    CreatePanel(line);
    m_typeId = GetBitmapId();
    if (m_typeId != CPanel::NoPanel)
        MakeImage();
}

CPanelCell::CPanelCell(std::unique_ptr<CPanel> panel) : m_panel(std::move(panel))
{
    m_typeId = GetBitmapId();
    if (m_typeId != CPanel::NoPanel)
        MakeImage();
}

CPanelCell::CPanelCell(const CPanelCell& other)
{
    if (other.m_panel) {
        CreatePanel(other.m_panel->GetLine());
        if (m_panel)
            m_panel->CopyFrom(*other.m_panel);
    }
    if (GetBitmapId() != CPanel::NoPanel)
        MakeImage();
    m_typeId = other.m_typeId;
}

CPanelCell::~CPanelCell() = default;

void CPanelCell::CreatePanel(const QString& line)
{
    if (CPanelFactory::Keyword(line).isEmpty())
        return;
    m_panel = CPanelFactory::Create(line);
}

int CPanelCell::GetBitmapId() const
{
    return m_panel ? m_panel->GetBitmapId() : int(CPanel::NoPanel);
}

bool CPanelCell::MakeImage()
{
    if (!m_panel || !m_panel->MakeImage(m_image)) {
        m_imageIndex = -1;
        return false;
    }
    m_imageIndex = 0;
    return true;
}
