-- Standard content of a new database file.

INSERT INTO db_info(db_version, last_update) VALUES ('4.6', now());

INSERT INTO system_settings(judges_points, check_mode, check_dir, show_address, auto_save, judges_order, locale)
VALUES (0, 0, NULL, 0, 0, 0, NULL);

-- Ids 1 to 4 are the Championship and Premiership dances; 1 to 5 Highland,
-- 6 and up National. Trophy and Special Fling are found by name.
INSERT INTO dances(dance_id, dance) VALUES (1, 'Fling');
INSERT INTO dances(dance_id, dance) VALUES (2, 'Swords');
INSERT INTO dances(dance_id, dance) VALUES (3, 'Seann Truibhas');
INSERT INTO dances(dance_id, dance) VALUES (4, 'Reel');
INSERT INTO dances(dance_id, dance) VALUES (5, 'Reel of Tulloch');
INSERT INTO dances(dance_id, dance) VALUES (6, 'Pas de Basque');
INSERT INTO dances(dance_id, dance) VALUES (7, 'Pas de Basque and High Cuts');
INSERT INTO dances(dance_id, dance) VALUES (8, 'Flora MacDonald''s Fancy');
INSERT INTO dances(dance_id, dance) VALUES (9, 'Scottish Lilt');
INSERT INTO dances(dance_id, dance) VALUES (10, 'Highland Laddie');
INSERT INTO dances(dance_id, dance) VALUES (11, 'Irish Jig');
INSERT INTO dances(dance_id, dance) VALUES (12, 'Sailors Hornpipe');
INSERT INTO dances(dance_id, dance) VALUES (13, 'Earl of Erroll');
INSERT INTO dances(dance_id, dance) VALUES (14, 'Blue Bonnets');
INSERT INTO dances(dance_id, dance) VALUES (15, 'Village Maid');
INSERT INTO dances(dance_id, dance) VALUES (16, 'Trophy Fling');
INSERT INTO dances(dance_id, dance) VALUES (17, 'Special Fling');

-- Prizes by number of dancers, with no gap from one dancer upward.
INSERT INTO system_no_prizes(min_no, max_no, no_prizes) VALUES (1, 1, 1);
INSERT INTO system_no_prizes(min_no, max_no, no_prizes) VALUES (2, 2, 2);
INSERT INTO system_no_prizes(min_no, max_no, no_prizes) VALUES (3, 3, 3);
INSERT INTO system_no_prizes(min_no, max_no, no_prizes) VALUES (4, 4, 4);
INSERT INTO system_no_prizes(min_no, max_no, no_prizes) VALUES (5, 5, 5);
INSERT INTO system_no_prizes(min_no, max_no, no_prizes) VALUES (6, 32767, 6);
