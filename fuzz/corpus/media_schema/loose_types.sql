DROP TABLE last_played_song; CREATE TABLE last_played_song (slot, path, list_position);
INSERT INTO last_played_song VALUES (1, x'ff00', 'no number');
INSERT INTO media (path, kind, title) VALUES (7, 'x', NULL);
