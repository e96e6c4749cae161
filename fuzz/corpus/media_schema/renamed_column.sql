ALTER TABLE groups RENAME COLUMN name TO title;
