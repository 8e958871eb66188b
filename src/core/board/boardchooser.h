#pragma once

#include <QString>

class CBoardInfo;
class CSettings;
class IMessenger;

// Chooses the board at start-up: the saved board when its folder exists and reads, else
// the candidates of the initialisation file in order, the first that reads.
class CBoardChooser
{
  public:
    // targetFolder is the TARGET folder holding one folder per board.
    CBoardChooser(const QString& targetFolder, IMessenger& messenger);

    // Reads the chosen board into board and answers its folder; "" when none can be read.
    // Only a missing saved board with no candidate at all is reported (59446); a saved
    // board that no longer reads falls back to the candidates silently.
    QString Choose(const CSettings& settings, CBoardInfo& board);
    // Reads the board in folder; false when the folder is missing or does not read.
    bool TryFolder(const QString& folder, CBoardInfo& board);

  private:
    // Reads the board named by a saved or candidate name, a folder of TARGET.
    bool TryBoard(const QString& name, CBoardInfo& board);

    QString m_targetFolder;
    IMessenger& m_messenger;
};
