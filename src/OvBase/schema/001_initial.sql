-- Each statement ends with a semicolon at the end of a line; each file sets its own user_version.
PRAGMA application_id = 1415672430;

CREATE TABLE users (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name TEXT NOT NULL UNIQUE COLLATE BINARY CHECK (name <> ''),
    create_time TEXT
);

CREATE TABLE projects (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name TEXT NOT NULL UNIQUE COLLATE BINARY CHECK (name <> ''),
    user_id INTEGER NOT NULL,
    data_path TEXT NOT NULL,
    description TEXT NOT NULL,
    create_time TEXT
);

CREATE TABLE global_values (
    key TEXT NOT NULL PRIMARY KEY COLLATE BINARY,
    value TEXT NOT NULL
) WITHOUT ROWID;

CREATE TABLE project_values (
    project_id INTEGER NOT NULL REFERENCES projects (id) ON DELETE CASCADE,
    key TEXT NOT NULL COLLATE BINARY,
    value TEXT NOT NULL,
    PRIMARY KEY (project_id, key)
) WITHOUT ROWID;

PRAGMA user_version = 1;
