ALTER TABLE media DROP COLUMN file_modified;
