#pragma once
// The download manager's side of the host's transfer sessions: which
// sessions are open, and a cancel request as the user gives it there.

class DLM_TransSession;

class HostDownloadManager {
public:
    /** Asks the most recently opened session that is still alive to cancel
     *  (transfer id 0). False when no session is open. */
    static bool cancelNewest();

    // Kept by DLM_TransSession itself.
    static void opened(DLM_TransSession* session);
    static void closed(DLM_TransSession* session);
};
