#pragma once
// The file manager's file operations.

#include <QFileInfo>
#include <QString>
#include <QStringList>

class VmNoticeDelay;

class MYSTUFF_FS_Opr {
public:
    /** The operation that copies (the file manager's paste of a copied file). */
    static constexpr int kCopy = 6;

    /**
     * Pastes @p source into the folder @p destination with @p operation,
     * advancing the meter of @p notice (may be null) as the bytes go.
     * @p count is the number of files the user pasted; @p failed receives the
     * names that could not be pasted; @p pasted and @p skipped, when not null,
     * receive how many were pasted and left out.
     * @return 0 on success; nonzero when the file is not there, the folder is
     *         missing, a file of that name is already there or the copy failed.
     */
    static int getPasteResult(const QString& destination, const QFileInfo& source, VmNoticeDelay* notice,
                              int* count, QStringList& failed, int operation, int* pasted, int* skipped);
};
