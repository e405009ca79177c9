-- What may stand between the words of a keyword text. 1 is the one for texts that the program
-- derives.
INSERT INTO tblSeparator(separatorID, separator, separatorDescription) VALUES
    (1, ' ', 'Blank'),
    (2, ',', 'Comma'),
    (3, ';', 'Semicolon'),
    (4, '/', 'Slash'),
    (5, '|', 'Vertical bar');
