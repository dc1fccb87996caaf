ALTER TABLE projects ADD COLUMN open_time TEXT;

PRAGMA user_version = 2;
