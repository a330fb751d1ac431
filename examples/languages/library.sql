-- A small lending library: tables, some books, and what its staff asks every day.
-- It's written for PostgreSQL; "quotes" and -- signs open nothing in here.
/* A comment of
   two lines with a 'quote' in it */

\echo Making the library "from scratch", please wait
\set ON_ERROR_STOP on

BEGIN TRANSACTION ISOLATION LEVEL SERIALIZABLE;

CREATE SCHEMA IF NOT EXISTS library;
SET search_path TO library, public;

CREATE TYPE condition AS ENUM ('new', 'used', 'torn');

CREATE TABLE member (
  id         INTEGER GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
  name       VARCHAR(80)   NOT NULL CHECK (length(name) > 1),
  email      TEXT          UNIQUE,
  joined     DATE          NOT NULL DEFAULT CURRENT_DATE,
  fee        NUMERIC(6, 2) DEFAULT 12.50,
  settings   JSONB         DEFAULT '{"mail": true}'::jsonb,
  active     BOOLEAN       NOT NULL DEFAULT TRUE
);

CREATE TABLE book (
  isbn       CHAR(13) PRIMARY KEY,
  title      TEXT NOT NULL,
  "shelf no" SMALLINT,
  state      condition DEFAULT 'new',
  cover      BYTEA
);

CREATE TABLE loan (
  member_id  INTEGER REFERENCES member (id) ON DELETE CASCADE,
  isbn       CHAR(13) NOT NULL,
  lent       TIMESTAMP WITH TIME ZONE DEFAULT now(),
  returned   TIMESTAMPTZ,
  CONSTRAINT loan_book FOREIGN KEY (isbn) REFERENCES book,
  PRIMARY KEY (member_id, isbn, lent)
);

CREATE UNIQUE INDEX open_loan ON loan USING btree (isbn) WHERE returned IS NULL;
COMMENT ON COLUMN book."shelf no" IS 'Counted from the door';

INSERT INTO member (name, email) VALUES
  ('Anne O''Hara', 'anne@example.org'),
  ('Bert', NULL);

INSERT INTO book (isbn, title, "shelf no") VALUES
  ('9780000000001', 'The Well -- a Story', 3),
  ('9780000000002', 'Knots & Bends', 0x1F)
ON CONFLICT (isbn) DO UPDATE SET title = EXCLUDED.title;

-- Who keeps a book longer than three weeks?
WITH late AS (
  SELECT l.member_id, count(*) AS books, min(l.lent) AS since
  FROM loan AS l
  WHERE l.returned IS NULL
    AND l.lent < now() - INTERVAL '21 days'
  GROUP BY l.member_id
  HAVING count(*) >= 1
)
SELECT m.name,
       upper(substring(m.name FROM 1 FOR 3)) || '-' || m.id AS code,
       coalesce(m.email, 'no mail') AS address,
       extract(day FROM now() - late.since) AS days,
       CASE WHEN late.books > 2 THEN 'many' WHEN late.books = 2 THEN 'two' ELSE 'one' END,
       rank() OVER (PARTITION BY m.active ORDER BY late.since DESC NULLS LAST) AS place,
       m.settings ->> 'mail' AS mail
FROM member m
LEFT OUTER JOIN late ON late.member_id = m.id
WHERE m.name NOT LIKE 'X%' AND m.fee BETWEEN 0 AND 1e3
ORDER BY days DESC, m.name
LIMIT 10 OFFSET 0;

CREATE OR REPLACE FUNCTION give_back(book_isbn CHAR(13)) RETURNS INTEGER
LANGUAGE plpgsql STRICT AS $$
DECLARE
  changed INTEGER := 0;
BEGIN
  UPDATE loan SET returned = now() WHERE isbn = book_isbn AND returned IS NULL;
  GET DIAGNOSTICS changed = ROW_COUNT;
  IF changed = 0 THEN
    RAISE NOTICE 'Book % was not lent', book_isbn;  -- nothing to do
  END IF;
  RETURN changed;
END;
$$;

CREATE VIEW shelf AS
  SELECT title, "shelf no" FROM book
  UNION ALL
  SELECT 'Total', count(*)::smallint FROM book;

GRANT SELECT ON shelf TO PUBLIC;
DELETE FROM member WHERE active = FALSE AND joined < DATE '2020-01-01';
COMMIT;
