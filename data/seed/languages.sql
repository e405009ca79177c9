-- Import, search, export and deletion know some of these IDs: see export/markers.h and the search.
INSERT INTO tblLanguage(languageID, language, Status) VALUES
    (1, 'Visual Basic', TRUE),
    (2, 'Java', TRUE),
    (3, 'C#', TRUE),
    (4, 'C++', TRUE),
    (5, 'C', TRUE),
    (6, 'ASP', TRUE),
    (7, 'JavaScript', TRUE),
    (8, 'VBScript', TRUE),
    (9, 'HTML', TRUE),
    (10, 'C/C++ Header', TRUE),
    (11, 'C++ Header', TRUE);
