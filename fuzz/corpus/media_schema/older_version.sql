PRAGMA user_version = 1; DROP TRIGGER media_inserted;
